// Frames as a panel sees them: cutting the bytes of a line into frames, and reading what a frame
// says. Nothing here knows a panel's state, a line or a clock.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QList>
#include <QString>

#include "engine/schedule.h"

namespace VirtualPanel {

// A longer frame is dropped up to its line end; only its beginning is kept, to be recorded.
inline constexpr qsizetype kMaximumFrameSize = 65'536;
inline constexpr qsizetype kKeptOfTooLongFrame = 256;

struct ReceivedFrame {
  QByteArray bytes;  // as received, with its line end; the beginning only of one that was too long
  bool too_long = false;
};

// Cuts a stream of bytes, in whatever pieces it arrives, at CR LF or a lone LF. Lines without any
// content are no frames. Holds at most kMaximumFrameSize bytes. One for each connection.
class FrameSplitter {
 public:
  // The frames that these bytes complete, in order.
  QList<ReceivedFrame> Feed(QByteArrayView bytes);
  // The bytes that the frame without an end takes, its room to grow included.
  qsizetype Held() const { return pending_.capacity(); }

 private:
  QByteArray pending_;
  bool too_long_ = false;
};

enum class Meaning {
  kPoll,
  kDeleteAll,
  kDeletePage,
  kRunPage,
  kMessageLine,
  kSetClock,
  kSchedule,
  kScrollingLine,
  kTooLong,
  kNotUnderstood,
};

inline constexpr int kNobody = -1;     // a frame without an address
inline constexpr int kEveryPanel = 0;  // the broadcast address

struct Frame {
  int addressee = kNobody;  // a panel's ID, kEveryPanel or kNobody
  Meaning meaning = Meaning::kNotUnderstood;
  int page = -1;    // delete page, run page, message line
  int row = -1;     // message line, as sent: 0 to 99; scrolling line: any number
  QByteArray text;  // message line, scrolling line: everything behind its codes up to the line end
  // Set clock: a wall-clock reading, held as UTC so that no summer time disturbs it.
  QDateTime clock;
  char letter = kFirstScheduleLetter;  // schedule: A to J
  Schedule schedule;
};

// Reads one frame, with or without its line end. Anything that is no known frame is kNotUnderstood;
// its addressee is read all the same, since a panel answers whatever is addressed to it.
Frame ParseFrame(QByteArrayView bytes);

// What a frame says, in words.
QString Describe(const Frame& frame);

// "<ID" + two upper-case hexadecimal digits + ">".
QByteArray AddressPrefix(int id);

}  // namespace VirtualPanel
