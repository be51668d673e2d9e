// What every character of a page or scrolling message carries beside itself: a size, a colour and
// whether it blinks, one letter each.
#pragma once

#include <array>

namespace Brivon1 {

/// The colours by letter: the first one is "A".
inline constexpr std::array<const char*, 16> kColourNames = {"Red",
                                                             "Green",
                                                             "Yellow",
                                                             "3D Red/Green",
                                                             "3D Red/Yellow",
                                                             "3D Green/Red",
                                                             "3D Green/Yellow",
                                                             "3D Yellow/Red",
                                                             "3D Yellow/Green",
                                                             "Red On Green",
                                                             "Green On Red",
                                                             "Shadow Red/Green",
                                                             "Shadow Green/Red",
                                                             "Shadow Yellow/Red",
                                                             "Shadow Yellow/Green",
                                                             "Rainbow"};

/// The sizes by letter: the first one is "A".
inline constexpr std::array<const char*, 4> kSizeNames = {"Normal", "Compressed", "Normal Bold",
                                                          "Compressed Bold"};

inline constexpr char kSteady = 'N';
inline constexpr char kBlinking = 'B';

/// The attributes of one character.
struct Attributes {
  char size = 'A';       ///< "A" to "D".
  char colour = 'A';     ///< "A" to "P"; a hand-made file may give any other character.
  char blink = kSteady;  ///< kSteady or kBlinking.

  bool operator==(const Attributes&) const = default;
};

}  // namespace Brivon1
