// The display features: how a page comes onto the panel. Their names, their code letters, and the
// way from a name in a schedule back to its code.
#pragma once

#include <array>

#include <QChar>
#include <QString>

namespace Brivon1 {

struct DisplayFeature {
  const char* name;
  char code;  ///< What the panel is sent.
};

/// The features in the order in which they are offered. It is not that of their codes.
inline constexpr std::array<DisplayFeature, 8> kDisplayFeatures = {{{"Appear", 'A'},
                                                                    {"Flip", 'B'},
                                                                    {"Open", 'C'},
                                                                    {"Wipe Left", 'E'},
                                                                    {"Wipe Right", 'D'},
                                                                    {"Fall", 'F'},
                                                                    {"Slide", 'G'},
                                                                    {"Shift", 'H'}}};

/// The place in kDisplayFeatures of the feature whose upper-case form equals `text` exactly; the
/// first place when there is none.
int PreselectedFeature(const QString& text);

/// The English name of the feature with code "A" + `place`; empty where no feature has that code.
QString FeatureNameAtCode(int place);

/// The code of the feature that a schedule names: an English name in any case, else, with a
/// language active, a name of the language file, else "A". Blanks at both ends do not count.
QChar FeatureCode(const QString& name);

}  // namespace Brivon1
