// What both tries of the line faults look at, in virtual time and over real lines.
#pragma once

#include <algorithm>
#include <string>

#include <QList>

#include <gtest/gtest.h>

#include "sending/line_faults/line_faults.h"
#include "support/send_dialog.h"

/// How many cases the tables hold.
inline constexpr int kFaultCases = 389;

/// A window over one of the links that it sends over.
struct FaultPlace {
  const FaultyWindow* window;
  LineKind line;
};

inline void PrintTo(const FaultPlace& place, std::ostream* out) { *out << place.window->name; }

QList<FaultPlace> FaultPlaces();
std::string FaultPlaceName(const testing::TestParamInfo<FaultPlace>& info);

/// Which of the window's controls can be used, in their order.
QList<bool> EnabledControls(const SendDialog& dialog);

/// The frames with the time cut out of those that set the clock.
QList<QByteArray> WithoutTimes(QList<QByteArray> frames);

/// Expects the message boxes of an outcome, every part of them.
void ExpectBoxes(const MessageBoxReader& boxes, const FaultyWindow& window, LineKind line,
                 const Outcome& outcome, const TemporaryProgramFolder& folder,
                 const QString& reason);
