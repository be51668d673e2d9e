#include "engine/frame.h"

#include <optional>

#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qsizetype kPrefixSize = 6;
// More digits than any sender writes, and still within an int.
constexpr qsizetype kMostPageDigits = 9;
constexpr qsizetype kMostRowDigits = 9;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

int DigitValue(char character) { return character - '0'; }

// The value of an upper-case hexadecimal digit, or -1.
int HexValue(char character) {
  if (IsDigit(character)) return DigitValue(character);
  if (character >= 'A' && character <= 'F') return character - 'A' + 10;
  return -1;
}

QByteArrayView WithoutLineEnd(QByteArrayView bytes) {
  if (bytes.endsWith('\n')) bytes.chop(1);
  if (bytes.endsWith('\r')) bytes.chop(1);
  return bytes;
}

// Reads `opening`, at least one digit and ">" from the front of *bytes. Moves *bytes behind it and
// returns the number; otherwise leaves *bytes alone.
std::optional<int> TakeNumberCode(QByteArrayView* bytes, QByteArrayView opening,
                                  qsizetype most_digits) {
  if (!bytes->startsWith(opening)) return std::nullopt;
  qsizetype at = opening.size();
  int number = 0;
  while (at < bytes->size() && IsDigit((*bytes)[at])) {
    if (at - opening.size() == most_digits) return std::nullopt;
    number = number * 10 + DigitValue((*bytes)[at]);
    ++at;
  }
  if (at == opening.size() || at == bytes->size() || (*bytes)[at] != '>') return std::nullopt;
  *bytes = bytes->sliced(at + 1);
  return number;
}

// A code that is the whole of the body, such as "<D007>".
std::optional<int> WholeNumberCode(QByteArrayView body, QByteArrayView opening) {
  const auto number = TakeNumberCode(&body, opening, kMostPageDigits);
  return body.isEmpty() ? number : std::nullopt;
}

// "<T" yy mm dd w hh nn ss ">". The day of the week is checked for its range alone: the date rules.
std::optional<QDateTime> ReadSetClock(QByteArrayView bytes) {
  constexpr qsizetype kSize = 16;
  if (bytes.size() != kSize || !bytes.startsWith("<T") || !bytes.endsWith('>')) return std::nullopt;
  const QByteArrayView digits = bytes.sliced(2, kSize - 3);
  for (const char digit : digits) {
    if (!IsDigit(digit)) return std::nullopt;
  }
  const auto pair = [&](qsizetype at) {
    return DigitValue(digits[at]) * 10 + DigitValue(digits[at + 1]);
  };
  if (DigitValue(digits[6]) > 6) return std::nullopt;
  const QDate date(2000 + pair(0), pair(2), pair(4));
  const QTime time(pair(7), pair(9), pair(11));
  if (!date.isValid() || !time.isValid()) return std::nullopt;
  return QDateTime(date, time, QTimeZone::utc());
}

// The line code of a message line is the first five characters of a line of the sender's file:
// "<L01>", or "<L1>" and the first character of the text, which then comes once more behind the
// page code.
bool ReadMessageLine(QByteArrayView body, Frame* frame) {
  const auto row = TakeNumberCode(&body, "<L", 2);
  if (!row) return false;
  auto page = TakeNumberCode(&body, "<P", kMostPageDigits);
  if (!page && *row < 10 && !body.isEmpty()) {
    body = body.sliced(1);
    page = TakeNumberCode(&body, "<P", kMostPageDigits);
  }
  if (!page) return false;
  frame->meaning = Meaning::kMessageLine;
  frame->row = *row;
  frame->page = *page;
  frame->text = body.toByteArray();
  return true;
}

// "<T" and a letter and ">", the schedule behind it.
bool ReadSchedule(QByteArrayView body, Frame* frame) {
  constexpr qsizetype kCodeSize = 4;
  if (body.size() < kCodeSize || !body.startsWith("<T") || body[3] != '>') return false;
  const char letter = body[2];
  if (letter < kFirstScheduleLetter || letter > kLastScheduleLetter) return false;
  const auto schedule = ParseSchedule(body.sliced(kCodeSize));
  if (!schedule) return false;
  frame->meaning = Meaning::kSchedule;
  frame->letter = letter;
  frame->schedule = *schedule;
  return true;
}

// "<L", a number as it is written plainly (no zeros in front, perhaps a minus), ">", the text. A
// text that begins with a page code makes it a message line: the two cannot be told apart.
bool ReadScrollingLine(QByteArrayView body, Frame* frame) {
  constexpr char kOpening[] = "<L";
  constexpr char kNegativeOpening[] = "<L-";
  const bool is_negative = body.startsWith(kNegativeOpening);
  const QByteArrayView opening = is_negative ? kNegativeOpening : kOpening;
  const bool begins_with_zero = body.size() > opening.size() && body[opening.size()] == '0';
  if (begins_with_zero && (is_negative || !body.startsWith("<L0>"))) return false;
  const auto row = TakeNumberCode(&body, opening, kMostRowDigits);
  if (!row) return false;
  frame->meaning = Meaning::kScrollingLine;
  frame->row = is_negative ? -*row : *row;
  frame->text = body.toByteArray();
  return true;
}

}  // namespace

QList<ReceivedFrame> FrameSplitter::Feed(QByteArrayView bytes) {
  QList<ReceivedFrame> frames;
  while (!bytes.isEmpty()) {
    const qsizetype line_end = bytes.indexOf('\n');
    const bool is_complete = line_end >= 0;
    const QByteArrayView part = is_complete ? bytes.first(line_end + 1) : bytes;
    bytes = bytes.sliced(part.size());

    if (!too_long_ && pending_.size() + part.size() > kMaximumFrameSize) {
      too_long_ = true;
      pending_.append(part.first(qMin(part.size(), kKeptOfTooLongFrame)));
      pending_.truncate(kKeptOfTooLongFrame);
      pending_.squeeze();
    } else if (!too_long_) {
      pending_.append(part);
    }
    if (!is_complete) break;

    if (too_long_ || !WithoutLineEnd(pending_).isEmpty()) frames.append({pending_, too_long_});
    pending_.clear();
    too_long_ = false;
  }
  return frames;
}

Frame ParseFrame(QByteArrayView bytes) {
  bytes = WithoutLineEnd(bytes);
  Frame frame;
  if (const auto clock = ReadSetClock(bytes)) {
    frame.meaning = Meaning::kSetClock;
    frame.clock = *clock;
    return frame;
  }
  if (bytes.size() < kPrefixSize || !bytes.startsWith("<ID") || bytes[5] != '>') return frame;
  const int high = HexValue(bytes[3]);
  const int low = HexValue(bytes[4]);
  if (high < 0 || low < 0) return frame;
  frame.addressee = high * 16 + low;

  const QByteArrayView body = bytes.sliced(kPrefixSize);
  if (body == QByteArrayView("<?>")) {
    frame.meaning = Meaning::kPoll;
  } else if (body == QByteArrayView("<D*>")) {
    frame.meaning = Meaning::kDeleteAll;
  } else if (const auto deleted = WholeNumberCode(body, "<D")) {
    frame.meaning = Meaning::kDeletePage;
    frame.page = *deleted;
  } else if (const auto run = WholeNumberCode(body, "<RP")) {
    frame.meaning = Meaning::kRunPage;
    frame.page = *run;
  } else if (!ReadMessageLine(body, &frame) && !ReadSchedule(body, &frame)) {
    ReadScrollingLine(body, &frame);
  }
  return frame;
}

QString Describe(const Frame& frame) {
  switch (frame.meaning) {
    case Meaning::kPoll:
      return u"poll"_s;
    case Meaning::kDeleteAll:
      return u"delete all pages"_s;
    case Meaning::kDeletePage:
      return u"delete page %1"_s.arg(frame.page);
    case Meaning::kRunPage:
      return u"run page %1"_s.arg(frame.page);
    case Meaning::kMessageLine:
      return u"page %1, row %2"_s.arg(frame.page).arg(frame.row);
    case Meaning::kSetClock:
      return u"set clock to "_s + frame.clock.toString(u"yyyy-MM-dd HH:mm:ss"_s);
    case Meaning::kSchedule: {
      const qsizetype count = frame.schedule.entries.size();
      return u"schedule %1, %2, %3 %4"_s.arg(QLatin1Char(frame.letter))
          .arg(ScheduleTime(frame.schedule))
          .arg(count)
          .arg(count == 1 ? "entry"_L1 : "entries"_L1);
    }
    case Meaning::kScrollingLine:
      return u"scrolling text, row %1"_s.arg(frame.row);
    case Meaning::kTooLong:
      return u"too long"_s;
    case Meaning::kNotUnderstood:
      break;
  }
  return u"not understood"_s;
}

QByteArray AddressPrefix(int id) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  QByteArray prefix("<ID");
  prefix += kDigits[(id / 16) % 16];
  prefix += kDigits[id % 16];
  prefix += '>';
  return prefix;
}

}  // namespace VirtualPanel
