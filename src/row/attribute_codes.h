// What every character of a page or scrolling message carries beside itself: a size, a colour and
// whether it blinks, one letter each. Their names stand here, and so does the way in which both
// kinds of files store them, as codes of four characters between the characters of the text.
#pragma once

#include <array>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>

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

/// Writes one line of text with its codes. A code stands only where an attribute changes; the first
/// character of a line gets both.
class AttributeWriter {
 public:
  /// Appends to `line` the codes that are due, size before colour, and then the character.
  void Append(char character, const Attributes& attributes, QByteArray& line);

 private:
  std::optional<char> size_;
  std::optional<char> blink_;
  std::optional<char> colour_;
};

/// Takes the size or colour code at the beginning of `rest` into `attributes` and returns its
/// length; 0 where no code stands there. A size code with an unknown letter changes nothing but is
/// a code all the same; a colour code may carry any character.
qsizetype ReadAttributeCode(QByteArrayView rest, Attributes& attributes);

}  // namespace Brivon1
