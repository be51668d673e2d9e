// What can be wrong with a line or the panel at its end, and, for every window, link and moment,
// how a transmission must end then. The times are those of the protocol: 1100 ms for an
// acknowledgement, five attempts, 300 ms of "Delay Period", 300 ms for a scrolling frame or a
// command to leave.
#pragma once

#include <optional>
#include <variant>

#include <QList>
#include <QString>

#include "sending/line_faults/faulty_windows.h"

enum class LineFault {
  kSilent,
  kSilent4,  ///< The first four answers are swallowed ...
  kSilent5,  ///< ... or five, which is every attempt.
  kGarbage,
  kLowerCase,
  kPieces,
  kLate,
  kStrayByte,
  kCloseAfter,
  kFlood,
  kReset,
  kRefused,
  kVanishingPort,
  kReplugged,  ///< Unplugged and plugged in again.
};

inline constexpr LineFault kLineFaults[] = {
    LineFault::kSilent,        LineFault::kSilent4,  LineFault::kSilent5, LineFault::kGarbage,
    LineFault::kLowerCase,     LineFault::kPieces,   LineFault::kLate,    LineFault::kStrayByte,
    LineFault::kCloseAfter,    LineFault::kFlood,    LineFault::kReset,   LineFault::kRefused,
    LineFault::kVanishingPort, LineFault::kReplugged};

const char* NameOf(LineFault fault);

/// The fault of the panel itself; nothing where it is the line's.
std::optional<VirtualPanel::Faults> PanelFault(LineFault fault);

struct Outcome {
  Ending ending = Ending::kFinished;
  int arrived = 0;       ///< Acknowledged frames; of a transmission that has finished, those sent.
  int milliseconds = 0;  ///< From the press to the end, beside the 500 ms of a connection.
  int again = 0;         ///< How often the frame of the moment was sent once more, in the end well.
};

/// Why there is no such case.
struct CannotBe {
  const char* reason;
};

/// Nothing where the tables do not know the case.
std::optional<std::variant<Outcome, CannotBe>> ExpectedOutcome(const FaultyWindow& window,
                                                               LineKind line, LineFault fault,
                                                               Moment moment);

/// Every frame that the panel has received in the end.
QList<QByteArray> FramesOf(const FaultyWindow& window, Moment moment, const Outcome& outcome);

/// What the panel holds in the end: everything that has arrived, beside the frame that had no
/// answer, and for the rest what it held before.
QStringList HeldAfter(const FaultyWindow& window, const Outcome& outcome);
