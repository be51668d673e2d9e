// The display features: how a page comes onto the panel. Their names, their code letters, and the
// way from a name in a schedule back to its code.
#pragma once

#include <array>
#include <optional>

#include <QChar>
#include <QString>

namespace ModuleLanguage {
class LanguageFile;
}

namespace Brivon1 {

inline constexpr qsizetype kFeatureField = 20;  ///< Characters that a schedule has for its name.

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

/// Entry `place`, that of code "A" + `place`, of the feature list with a language active: the
/// language file's, else the English name of the code; nothing for a place without either.
std::optional<QString> FeatureEntry(const ModuleLanguage::LanguageFile& file, int place);

/// What the property dialog is told to preselect for a new step of a schedule: "Appear", or with a
/// language active the language's entry at place 2.
QString FirstFeature();

/// What the property dialog is told to preselect for the feature that a schedule names: its upper
/// case, or with a language active the language's entry of its code. So a dialog that is left with
/// OK alone leaves the effect as it was, whatever language the schedule was made in.
QString FeatureToPreselect(const QString& stored);

/// What a schedule stores for the feature `chosen` in the property dialog, in place of `before`
/// (empty for a new step): `chosen` itself, or the English name of its code where it is blank or
/// too long for the field, has a character that the code page lacks, or would be read as another
/// code. A `before` that is a name in a language not in use is kept where the dialog leaves it at
/// code "A", because another installation may know better.
QString FeatureToStore(const QString& chosen, const QString& before);

}  // namespace Brivon1
