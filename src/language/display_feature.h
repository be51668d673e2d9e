// The display features: how a page comes onto the panel. Their names, their code letters, and the
// way from a name in a schedule back to its code.
#pragma once

#include <array>
#include <optional>

#include <QChar>
#include <QString>
#include <QStringList>

#include "language/module_language.h"

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

/// The English name of the feature with code "A" + `place`; empty where no feature has that code.
QString FeatureNameAtCode(int place);

/// The features' names as they are at one moment: the English ones, and with a language active
/// those of its file. Who works with several of them reads them once, and all fit together.
class FeatureNames {
 public:
  /// Reads the language file where a language is active.
  FeatureNames();

  /// The entries of the property dialog's list: those of kDisplayFeatures, or with a language
  /// active the entries of all codes that have one.
  QStringList Entries() const;

  /// The place in Entries() that the property dialog selects for `text`: that of the feature whose
  /// upper-case form equals it exactly, else the first; with a language active that of the entry
  /// that equals it, else -1.
  int Preselected(const QString& text) const;

  /// The entry of code "A" + `place`: the language file's, else the English name; nothing for a
  /// place without either.
  std::optional<QString> Entry(int place) const;

  /// The code of the feature that a schedule names: an English name in any case, else, with a
  /// language active, a name of the language file, else "A". Blanks at both ends do not count.
  QChar Code(const QString& name) const;

  /// What the property dialog is told to preselect for a new step of a schedule: "Appear", or with
  /// a language active the language's entry at place 2.
  QString First() const;

  /// What the property dialog is told to preselect for the feature that a schedule names: its upper
  /// case, or with a language active the language's entry of its code. So a dialog that is left
  /// with OK alone leaves the effect as it was, whatever language the schedule was made in.
  QString ToPreselect(const QString& stored) const;

  /// What a schedule stores for the entry `chosen` in the property dialog, in place of `before`
  /// (empty for a new step): `chosen` itself, or the English name of its code where it is blank or
  /// too long for the field, has a character that the code page lacks, or would be read as another
  /// code. A `before` that is a name in a language not in use is kept where the dialog leaves it at
  /// code "A", because another installation may know better.
  QString ToStore(const QString& chosen, const QString& before) const;

 private:
  std::optional<QChar> KnownCode(const QString& name) const;
  QChar CodeOfEntry(const QString& chosen) const;

  std::optional<ModuleLanguage::LanguageFile> file_;  // nothing without a language
};

}  // namespace Brivon1
