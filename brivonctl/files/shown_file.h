// What a file looks like on a panel.
#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

#include "panel_dots/panel_picture.h"

namespace BrivonCtl {

struct ShownPage {
  QString heading;  ///< For the steps of a schedule: its number, file, delay and effect.
  PanelDots::PanelPicture picture;
};

struct ShownFile {
  QString refusal;  ///< Why nothing is shown; empty where there are pages.
  bool is_schedule = false;
  std::vector<ShownPage> pages;  ///< One, or the steps of a schedule in their order.
};

/// The file at `path` on a panel of three colours, or of one where `mono` is set. A scrolling
/// message is one row, as wide as its text, up to kWidestText dots. `clock` is the panel's date and
/// time.
ShownFile ReadShownFile(const QString& path, bool mono, const QDateTime& clock);

inline constexpr int kWidestText = 32000;

}  // namespace BrivonCtl
