// The bytes of the control frames, of the acknowledgement, and of what is taken out of a text for a
// panel of one colour. Every frame ends with CR LF; there is no length, checksum or escaping.
#pragma once

#include <QByteArray>
#include <QDateTime>

namespace Brivon1 {

/// The six-byte address prefix of a panel, "<ID" + two upper-case hexadecimal digits + ">".
/// `id` is 0 to 255; 0 addresses all panels.
QByteArray AckPrefix(int id);

/// What an addressed panel answers: its own prefix and CR LF, eight bytes.
QByteArray Acknowledgement(int id);

QByteArray PollFrame(int id);
QByteArray DeleteAllFrame(int id);

/// `page` is written as three decimal digits.
QByteArray DeletePageFrame(int id, int page);
QByteArray RunPageFrame(int id, int page);

/// The frame that sets every panel's clock to `now`. It carries no address prefix.
QByteArray SetClockFrame(const QDateTime& now);

/// `text` without its colour codes, each "<C" + one character + ">".
QByteArray StripColourCodes(const QByteArray& text);

}  // namespace Brivon1
