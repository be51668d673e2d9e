#include "sending/line_faults/line_faults.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using enum Ending;
using enum LineFault;

enum class Over { kBoth, kTcp, kSerial };

/// A fault of a window: one outcome for each moment that it has, from "before" on.
struct Row {
  LineFault fault;
  Over over;
  QList<Outcome> outcomes;
};

// Behind a page that has arrived comes the pause of 300 ms.
const QList<Row>& PageTable() {
  static const QList<Row> table = {
      // before, first row, middle row, last row
      {kSilent,
       Over::kBoth,
       {{kNoAnswer, 0, 5500}, {kNoAnswer, 0, 5500}, {kNoAnswer, 2, 5500}, {kNoAnswer, 3, 5500}}},
      {kSilent4,
       Over::kBoth,
       {{kFinished, 4, 4700, 4},
        {kFinished, 4, 4700, 4},
        {kFinished, 4, 4700, 4},
        {kFinished, 4, 4700, 4}}},
      {kSilent5,
       Over::kBoth,
       {{kNoAnswer, 0, 5500}, {kNoAnswer, 0, 5500}, {kNoAnswer, 2, 5500}, {kNoAnswer, 3, 5500}}},
      {kGarbage,
       Over::kBoth,
       {{kWrongAnswer, 0, 0}, {kWrongAnswer, 0, 0}, {kWrongAnswer, 2, 0}, {kWrongAnswer, 3, 0}}},
      {kLowerCase,
       Over::kBoth,
       {{kWrongAnswer, 0, 0}, {kWrongAnswer, 0, 0}, {kWrongAnswer, 2, 0}, {kWrongAnswer, 3, 0}}},
      {kPieces,
       Over::kBoth,
       {{kFinished, 4, 700}, {kFinished, 4, 700}, {kFinished, 4, 500}, {kFinished, 4, 400}}},
      {kLate,
       Over::kBoth,
       {{kFinished, 4, 3900}, {kFinished, 4, 3900}, {kFinished, 4, 2100}, {kFinished, 4, 1200}}},
      {kStrayByte,
       Over::kBoth,
       {{kNoAnswer, 0, 5500}, {kNoAnswer, 0, 5500}, {kNoAnswer, 2, 5500}, {kNoAnswer, 3, 5500}}},
      {kCloseAfter,
       Over::kTcp,
       {{kNotOpened}, {kCutBetween, 1, 0}, {kCutBetween, 3, 0}, {kFinished, 4, 300}}},
      {kCloseAfter,
       Over::kSerial,
       {{kNothingSent}, {kCutBetween, 1, 0}, {kCutBetween, 3, 0}, {kFinished, 4, 300}}},
      {kFlood,
       Over::kBoth,
       {{kNoAnswer, 0, 5500}, {kNoAnswer, 0, 5500}, {kNoAnswer, 2, 5500}, {kNoAnswer, 3, 5500}}},
      {kReset, Over::kTcp, {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 0}, {kCut, 3, 0}}},
      {kRefused, Over::kTcp, {{kNotOpened}}},
      {kVanishingPort, Over::kSerial, {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 0}, {kCut, 3, 0}}},
      {kReplugged, Over::kBoth, {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 0}, {kCut, 3, 0}}},
  };
  return table;
}

// The pause comes behind each of the two files and three times ahead of the schedule's own frame:
// 1500 ms, of which 300 have passed in the middle and 1500 at the schedule's frame.
const QList<Row>& ScheduleTable() {
  static const QList<Row> table = {
      // before, first row, middle row, last row, schedule frame
      {kSilent,
       Over::kBoth,
       {{kNoAnswer, 0, 5500},
        {kNoAnswer, 0, 5500},
        {kNoAnswer, 2, 5800},
        {kNoAnswer, 3, 5800},
        {kNoAnswer, 4, 7000}}},
      {kSilent4,
       Over::kBoth,
       {{kFinished, 5, 5900, 4},
        {kFinished, 5, 5900, 4},
        {kFinished, 5, 5900, 4},
        {kFinished, 5, 5900, 4},
        {kFinished, 5, 5900, 4}}},
      {kSilent5,
       Over::kBoth,
       {{kNoAnswer, 0, 5500},
        {kNoAnswer, 0, 5500},
        {kNoAnswer, 2, 5800},
        {kNoAnswer, 3, 5800},
        {kNoAnswer, 4, 7000}}},
      {kGarbage,
       Over::kBoth,
       {{kWrongAnswer, 0, 0},
        {kWrongAnswer, 0, 0},
        {kWrongAnswer, 2, 300},
        {kWrongAnswer, 3, 300},
        {kWrongAnswer, 4, 1500}}},
      {kLowerCase,
       Over::kBoth,
       {{kWrongAnswer, 0, 0},
        {kWrongAnswer, 0, 0},
        {kWrongAnswer, 2, 300},
        {kWrongAnswer, 3, 300},
        {kWrongAnswer, 4, 1500}}},
      {kPieces,
       Over::kBoth,
       {{kFinished, 5, 2000},
        {kFinished, 5, 2000},
        {kFinished, 5, 1800},
        {kFinished, 5, 1700},
        {kFinished, 5, 1600}}},
      {kLate,
       Over::kBoth,
       {{kFinished, 5, 6000},
        {kFinished, 5, 6000},
        {kFinished, 5, 4200},
        {kFinished, 5, 3300},
        {kFinished, 5, 2400}}},
      {kStrayByte,
       Over::kBoth,
       {{kNoAnswer, 0, 5500},
        {kNoAnswer, 0, 5500},
        {kNoAnswer, 2, 5800},
        {kNoAnswer, 3, 5800},
        {kNoAnswer, 4, 7000}}},
      {kCloseAfter,
       Over::kTcp,
       {{kNotOpened},
        {kCutBetween, 1, 0},
        {kCutBetween, 3, 300},
        {kCutBetween, 4, 1500},
        {kFinished, 5, 1500}}},
      {kCloseAfter,
       Over::kSerial,
       {{kNothingSent},
        {kCutBetween, 1, 0},
        {kCutBetween, 3, 300},
        {kCutBetween, 4, 1500},
        {kFinished, 5, 1500}}},
      {kFlood,
       Over::kBoth,
       {{kNoAnswer, 0, 5500},
        {kNoAnswer, 0, 5500},
        {kNoAnswer, 2, 5800},
        {kNoAnswer, 3, 5800},
        {kNoAnswer, 4, 7000}}},
      {kReset,
       Over::kTcp,
       {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 300}, {kCut, 3, 300}, {kCut, 4, 1500}}},
      {kRefused, Over::kTcp, {{kNotOpened}}},
      {kVanishingPort,
       Over::kSerial,
       {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 300}, {kCut, 3, 300}, {kCut, 4, 1500}}},
      {kReplugged,
       Over::kBoth,
       {{kNotOpened}, {kCut, 0, 0}, {kCut, 2, 300}, {kCut, 3, 300}, {kCut, 4, 1500}}},
  };
  return table;
}

// An attempt begins with 300 ms for the frame to leave, and behind an acknowledged one comes the
// pause. What arrives in the 300 ms costs nothing more.
const QList<Row>& ScrollingTable() {
  static const QList<Row> table = {
      // before, its frame
      {kSilent, Over::kSerial, {{kNoAnswer, 0, 7000}, {kNoAnswer, 0, 7000}}},
      {kSilent4, Over::kSerial, {{kFinished, 1, 6200, 4}, {kFinished, 1, 6200, 4}}},
      {kSilent5, Over::kSerial, {{kNoAnswer, 0, 7000}, {kNoAnswer, 0, 7000}}},
      {kGarbage, Over::kSerial, {{kWrongAnswer, 0, 1500}, {kWrongAnswer, 0, 1500}}},
      {kLowerCase, Over::kSerial, {{kWrongAnswer, 0, 1500}, {kWrongAnswer, 0, 1500}}},
      {kPieces, Over::kSerial, {{kFinished, 1, 600}, {kFinished, 1, 600}}},
      {kLate, Over::kSerial, {{kFinished, 1, 1200}, {kFinished, 1, 1200}}},
      {kStrayByte, Over::kSerial, {{kNoAnswer, 0, 7000}, {kNoAnswer, 0, 7000}}},
      {kCloseAfter, Over::kSerial, {{kNothingSent}, {kFinished, 1, 600}}},
      {kFlood, Over::kSerial, {{kNoAnswer, 0, 7000}, {kNoAnswer, 0, 7000}}},
      {kVanishingPort, Over::kSerial, {{kNotOpened}, {kCut, 0, 300}}},
      {kReplugged, Over::kSerial, {{kNotOpened}, {kCut, 0, 300}}},
  };
  return table;
}

// A pause of 300 ms follows every failed attempt of a command, the last one too, unless the line is
// gone; 300 ms for the last bytes follow its end.
const QList<Row>& CommandTable() {
  static const QList<Row> table = {
      // before, its frame
      {kSilent, Over::kBoth, {{kNoAnswer, 0, 7300}, {kNoAnswer, 0, 7300}}},
      {kSilent4, Over::kBoth, {{kFinished, 1, 5900, 4}, {kFinished, 1, 5900, 4}}},
      {kSilent5, Over::kBoth, {{kNoAnswer, 0, 7300}, {kNoAnswer, 0, 7300}}},
      {kGarbage, Over::kBoth, {{kWrongAnswer, 0, 1800}, {kWrongAnswer, 0, 1800}}},
      {kLowerCase, Over::kBoth, {{kWrongAnswer, 0, 1800}, {kWrongAnswer, 0, 1800}}},
      {kPieces, Over::kBoth, {{kFinished, 1, 400}, {kFinished, 1, 400}}},
      {kLate, Over::kBoth, {{kFinished, 1, 1200}, {kFinished, 1, 1200}}},
      {kStrayByte, Over::kBoth, {{kNoAnswer, 0, 7300}, {kNoAnswer, 0, 7300}}},
      {kCloseAfter, Over::kTcp, {{kNotOpened}, {kFinished, 1, 300}}},
      {kCloseAfter, Over::kSerial, {{kNothingSent, 0, 300}, {kFinished, 1, 300}}},
      {kFlood, Over::kBoth, {{kNoAnswer, 0, 7300}, {kNoAnswer, 0, 7300}}},
      {kReset, Over::kTcp, {{kNotOpened}, {kCut, 0, 300}}},
      {kRefused, Over::kTcp, {{kNotOpened}}},
      {kVanishingPort, Over::kSerial, {{kNotOpened}, {kCut, 0, 300}}},
      {kReplugged, Over::kBoth, {{kNotOpened}, {kCut, 0, 300}}},
  };
  return table;
}

// The clock is set once. Over TCP nobody waits for the answer, over a serial line its time-out is
// waited for; that it is done is said whatever came, as long as the line could be opened.
const QList<Row>& SetClockTable() {
  static const QList<Row> table = {
      // before, its frame
      {kSilent, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kSilent, Over::kSerial, {{kFinished, 1, 1400}, {kFinished, 1, 1400}}},
      {kSilent4, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kSilent4, Over::kSerial, {{kFinished, 1, 1400}, {kFinished, 1, 1400}}},
      {kSilent5, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kSilent5, Over::kSerial, {{kFinished, 1, 1400}, {kFinished, 1, 1400}}},
      {kGarbage, Over::kBoth, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kLowerCase, Over::kBoth, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kPieces, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kPieces, Over::kSerial, {{kFinished, 1, 400}, {kFinished, 1, 400}}},
      {kLate, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kLate, Over::kSerial, {{kFinished, 1, 1200}, {kFinished, 1, 1200}}},
      {kStrayByte, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kStrayByte, Over::kSerial, {{kFinished, 1, 1400}, {kFinished, 1, 1400}}},
      {kCloseAfter, Over::kTcp, {{kNotOpened}, {kFinished, 1, 300}}},
      {kCloseAfter, Over::kSerial, {{kFinished, 0, 300}, {kFinished, 1, 300}}},
      {kFlood, Over::kTcp, {{kFinished, 1, 300}, {kFinished, 1, 300}}},
      {kFlood, Over::kSerial, {{kFinished, 1, 1400}, {kFinished, 1, 1400}}},
      {kReset, Over::kTcp, {{kNotOpened}, {kFinished, 1, 300}}},
      {kRefused, Over::kTcp, {{kNotOpened}}},
      {kVanishingPort, Over::kSerial, {{kNotOpened}, {kFinished, 1, 300}}},
      {kReplugged, Over::kBoth, {{kNotOpened}, {kFinished, 1, 300}}},
  };
  return table;
}

const QList<Row>& TableOf(const FaultyWindow& window) {
  const QByteArrayView name = window.name;
  if (name == "Page") return PageTable();
  if (name == "Schedule") return ScheduleTable();
  if (name == "Scrolling") return ScrollingTable();
  if (name == "SetClock") return SetClockTable();
  return CommandTable();
}

/// The reason why there is no such case; null where there is one.
const char* WhyNot(const FaultyWindow& window, LineKind line, LineFault fault, Moment moment) {
  if (!window.window.lines.contains(line)) {
    return "scrolling messages go over the serial line, whatever the send mode";
  }
  if (!FrameAt(window, moment)) return "the window sends no such frame";
  if (line == LineKind::kSerial && fault == kRefused) {
    return "nobody at the other end of a serial line refuses it: a port that cannot be opened is "
           "the vanishing one";
  }
  if (line == LineKind::kSerial && fault == kReset) return "a serial line has no connection";
  if (line == LineKind::kTcp && fault == kVanishingPort) {
    return "a connection has no device: one that goes is reset";
  }
  if (fault == kRefused && moment != Moment::kBefore) {
    return "a connection that stands is not refused any more";
  }
  return nullptr;
}

}  // namespace

const char* NameOf(LineFault fault) {
  static constexpr const char* kNames[] = {"silent",         "silent 4",
                                           "silent 5",       "garbage",
                                           "lower case",     "pieces",
                                           "late",           "stray byte",
                                           "close after",    "flood",
                                           "reset",          "refused",
                                           "vanishing port", "unplugged and plugged in again"};
  return kNames[static_cast<int>(fault)];
}

std::optional<VirtualPanel::Faults> PanelFault(LineFault fault) {
  switch (fault) {
    case kSilent:
      return VirtualPanel::Faults{.silent = true};
    case kSilent4:
      return VirtualPanel::Faults{.silent_answers = 4};
    case kSilent5:
      return VirtualPanel::Faults{.silent_answers = 5};
    case kGarbage:
      return VirtualPanel::Faults{.garbage = true};
    case kLowerCase:
      return VirtualPanel::Faults{.lower_case = true};
    case kPieces:
      return VirtualPanel::Faults{.pieces = 3, .piece_pause_ms = 50};
    case kLate:
      return VirtualPanel::Faults{.late_ms = 900};
    case kStrayByte:
      return VirtualPanel::Faults{.stray_byte = true};
    case kFlood:
      return VirtualPanel::Faults{.flood = true};
    default:
      return std::nullopt;
  }
}

std::optional<std::variant<Outcome, CannotBe>> ExpectedOutcome(const FaultyWindow& window,
                                                               LineKind line, LineFault fault,
                                                               Moment moment) {
  std::optional<std::variant<Outcome, CannotBe>> found;
  if (const char* reason = WhyNot(window, line, fault, moment)) found = CannotBe{reason};
  for (const Row& row : TableOf(window)) {
    const bool is_over =
        row.over == Over::kBoth || (row.over == Over::kTcp) == (line == LineKind::kTcp);
    const auto place = static_cast<qsizetype>(moment);
    if (row.fault != fault || !is_over || place >= row.outcomes.size()) continue;
    // Twice in the tables, or there and impossible, is a mistake in them.
    if (found && window.window.lines.contains(line)) return std::nullopt;
    if (!found) found = row.outcomes.at(place);
  }
  return found;
}

QList<QByteArray> FramesOf(const FaultyWindow& window, Moment moment, const Outcome& outcome) {
  const QList<QByteArray>& all = window.window.frames;
  QList<QByteArray> frames = all.first(outcome.arrived);
  if (outcome.again > 0) {
    const qsizetype at = std::max(FrameAt(window, moment).value_or(1), 1) - 1;
    frames.insert(at, outcome.again, all.at(at));
  }
  if (outcome.ending == kNoAnswer || outcome.ending == kWrongAnswer) {
    frames.append(QList<QByteArray>(5, all.at(outcome.arrived)));
  } else if (outcome.ending == kCut) {
    frames.append(all.at(outcome.arrived));
  }
  return frames;
}

QStringList HeldAfter(const FaultyWindow& window, const Outcome& outcome) {
  const bool is_one_unanswered =
      outcome.ending == kNoAnswer || outcome.ending == kWrongAnswer || outcome.ending == kCut;
  const qsizetype taken = outcome.arrived + (is_one_unanswered ? 1 : 0);
  return window.held_after.first(taken) + window.held_before.sliced(taken);
}
