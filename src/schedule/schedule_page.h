// The page of a step of a schedule as a panel shows it that was sent its message file.
#pragma once

#include <QString>

#include "base/dimension.h"
#include "panel_dots/panel_picture.h"

namespace Brivon1 {

struct SchedulePage {
  PanelDots::PageRows rows;  ///< Of a panel with three colours, as far as its dots reach,
  PanelDots::PageRows rows_of_one_colour;  ///< and of a panel with one.
  QString refusal;  ///< Why there is no page, as English message; empty where there is one.

  friend bool operator==(const SchedulePage&, const SchedulePage&) = default;
};

/// The page of a step whose message file is missing.
SchedulePage MissingPage();

/// Reads the message file at `path` for a panel of `dimension`, under the conditions on which a
/// transmission reads it. In any thread: it needs nothing but the file, and of a file of any size
/// no more is held than a panel can show, beside the row that is read.
SchedulePage ReadSchedulePage(const QString& path, Dimension dimension);

}  // namespace Brivon1
