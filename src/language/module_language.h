// The language module: replaces the built-in English texts by those of "langSetting.INI" beside the
// program, while the language flag is set. Nothing is cached: every lookup reads the file anew, so
// that an edited file takes effect at once. Who looks up many texts for one moment holds a
// LanguageFile.
#pragma once

#include <optional>

#include <QString>

#include "store/ini_file.h"

namespace ModuleLanguage {

/// The characters of a text in the language file; the rest of a longer one is cut off.
inline constexpr qsizetype kLongestValue = 255;

/// How many codes of display features a language may name: "A" to "J".
inline constexpr int kFeatureCodes = 10;

/// The language flag. It is false until start-up sets it, once, for the whole run.
bool IsLanguageActive();
void SetLanguageActive(bool active);

/// The language file as it is at this moment.
class LanguageFile {
 public:
  /// Reads the file; a missing one has no values.
  LanguageFile();

  /// The value of a key, cut to kLongestValue; nothing where the file, the section or the key is
  /// missing. A key with nothing behind its "=" yields an empty text. The file's bytes are UTF-8
  /// where all of them are valid UTF-8, else of the system's code page.
  std::optional<QString> Find(const QString& section, const QString& key) const;

  /// The same, with `missing`, cut likewise, in place of what is missing.
  QString Value(const QString& section, const QString& key, const QString& missing) const;

  /// The name of the display feature with code "A" + `place`; nothing where the file has none.
  std::optional<QString> FeatureName(int place) const;

 private:
  Brivon1::IniFile file_;
  bool is_utf8_;
};

/// One value of the language file, read now; see LanguageFile::Value().
QString ReadLangString(const QString& section, const QString& key, const QString& missing);

/// The text to show for an English message: the language file's where the flag is set and the
/// message is a known one, else `text` itself. Letters must match in case. The published messages
/// come first, then FurtherTexts().
QString TranslateMessage(const QString& text);

/// The same, but `missing` where the language file does not say what to show for `text`.
QString TranslateMessage(const QString& text, const QString& missing);

/// The code letter "A" to "J" of a display feature named in the user's language: that of the first
/// LanguageFile::FeatureName() that equals `name`, as the language file has it or as a schedule
/// file holds it. An empty QChar when none does.
QChar FeatureCodeFromName(const QString& name);

/// The same in a language file that has been read.
QChar FeatureCodeFromName(const LanguageFile& file, const QString& name);

/// The titles of the editors' file dialogs, which the caption loaders replace.
inline QString DialogTitleOpenMsg = QStringLiteral("Open Message");
inline QString DialogTitleSaveAs = QStringLiteral("Save As");
inline QString DialogTitleAddMsg = QStringLiteral("Add Message");
inline QString DialogTitleOpen = QStringLiteral("Open");

}  // namespace ModuleLanguage
