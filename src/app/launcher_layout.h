// Where the launcher's row of buttons stands. The rule is in twips.
#pragma once

namespace Brivon1 {

inline constexpr int kLauncherButtons = 5;

/// The width of the launcher with translated captions, which are longer.
inline constexpr int kTranslatedWidth = 9000;  // twips

/// The width of each button of the row, in twips, in a window of `window_width` twips; never
/// negative.
int LauncherButtonWidth(int window_width);

/// The same in whole pixels, the nearest ones, for a window of `window_width` pixels. The buttons
/// stand edge to edge from the left border, so that button n begins at n times this width.
int LauncherButtonPixels(int window_width);

}  // namespace Brivon1
