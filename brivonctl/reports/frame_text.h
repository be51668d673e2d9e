// The bytes of a frame as text: printable ASCII as it is, every other byte as an escape.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace BrivonCtl {

/// CR is "\r", LF is "\n", a backslash is two of them, and every other byte outside of 0x20 to 0x7e
/// is "\x" and two lower-case hexadecimal digits.
QByteArray FrameText(QByteArrayView frame);

}  // namespace BrivonCtl
