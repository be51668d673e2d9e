// A panel as a picture file.
#pragma once

#include <QByteArray>

#include "panel_dots/panel_picture.h"

namespace BrivonCtl {

/// Pixels from one dot to the next, fewer where the picture would have more than kMostPixels.
inline constexpr int kUsualPitch = 6;
inline constexpr qint64 kMostPixels = 16'000'000;

/// The panel with its frame, at the beginning of a blink, as PNG. Needs no display.
QByteArray PngPicture(const PanelDots::PanelPicture& picture);

}  // namespace BrivonCtl
