// What becomes of an order at each panel, as the threads that carry it out tell it to the one that
// shows it and writes it down.
#pragma once

#include <variant>

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include "panel_line/progress.h"

namespace BrivonCtl {

enum class Result { kOk, kFailed, kRefused, kStopped };

/// How an order to one panel has ended.
struct PanelResult {
  int panel = 0;
  Result result = Result::kFailed;
  QString text;    ///< What a window would say.
  QString reason;  ///< Why, what to do and what has arrived; empty after success.
};

/// One whole transmission to a panel, successful or not.
struct Transmission {
  PanelResult result;
  QDateTime begun;
  QByteArray digest;          ///< Of the file that was sent.
  int acknowledged_rows = 0;  ///< Of the page, or of all pages of the schedule.
  int attempts = 0;           ///< At all frames together.
  int number = 1;             ///< Which one of those to this panel it was.
  bool is_last = true;        ///< Whether none to the same panel follows.
};

/// A step within one.
struct Step {
  int panel = 0;
  Brivon1::Progress progress;
};

using Happening = std::variant<Step, Transmission>;

}  // namespace BrivonCtl
