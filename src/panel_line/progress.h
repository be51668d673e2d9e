// How far a transmission has come, as the rules report it and a window shows it.
#pragma once

#include <functional>

#include <QString>

#include "panel_line/waits.h"

namespace Brivon1 {

struct Progress {
  int row = 0;       ///< The row of a page that is being sent, from 1; 0 in a frame that is no row.
  int rows = 0;      ///< How many the page has.
  int unproven = 0;  ///< Of the rows before it: acknowledged while their own bytes had not left.
  int file = 0;  ///< The message file of a schedule that is being sent, from 1, or was sent last.
  int files = 0;
  QString file_name = {};
  bool is_schedule = false;  ///< Whether the files have arrived and their schedule is being sent.
  int attempt = 0;           ///< At the frame, from 1; 0 before its first one.
  int attempts = kAttempts;
  qint64 milliseconds_left = -1;  ///< Until what was written has left; -1 where nobody knows.
};

/// Shows how far a transmission has come.
using ShowProgress = std::function<void(const Progress& progress)>;

}  // namespace Brivon1
