#include "language/module_language.h"

#include "base/code_page.h"
#include "language/caption_tables.h"
#include "language/further_texts.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace ModuleLanguage {
namespace {

bool language_active = false;

QString Cut(const QString& text) {
  if (text.size() <= kLongestValue) return text;
  // Half of a character that takes two code units would not be a character at all.
  return text.left(text[kLongestValue - 1].isHighSurrogate() ? kLongestValue - 1 : kLongestValue);
}

/// A text as it comes back from a file that holds it in the code page.
QString AsStored(const QString& text) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  const auto bytes = code_page.ToBytes(text);
  return bytes ? code_page.ToText(*bytes) : text;
}

}  // namespace

bool IsLanguageActive() { return language_active; }

void SetLanguageActive(bool active) { language_active = active; }

LanguageFile::LanguageFile()
    : file_(Brivon1::IniFile::Load(Brivon1::InProgramFolder(u"langSetting.INI"_s))),
      is_utf8_(file_.Content().isValidUtf8()) {}

std::optional<QString> LanguageFile::Find(const QString& section, const QString& key) const {
  const auto value = file_.Value(section.toUtf8(), key.toUtf8());
  if (!value) return std::nullopt;
  return Cut(is_utf8_ ? QString::fromUtf8(*value) : Brivon1::CodePage::System().ToText(*value));
}

QString LanguageFile::Value(const QString& section, const QString& key,
                            const QString& missing) const {
  return Find(section, key).value_or(Cut(missing));
}

std::optional<QString> LanguageFile::FeatureName(int place) const {
  return Find(u"frmDelay"_s, u"ListFeature.List(%1)"_s.arg(place));
}

QString ReadLangString(const QString& section, const QString& key, const QString& missing) {
  return LanguageFile().Value(section, key, missing);
}

QString TranslateMessage(const QString& text) { return TranslateMessage(text, text); }

QString TranslateMessage(const QString& text, const QString& missing) {
  if (!language_active) return missing;
  for (const Message& message : Messages()) {
    if (text == QLatin1String(message.text)) {
      return ReadLangString(QString::fromLatin1(message.section), QString::fromLatin1(message.key),
                            missing);
    }
  }
  return TranslateText(text, missing);
}

QChar FeatureCodeFromName(const QString& name) { return FeatureCodeFromName(LanguageFile(), name); }

QChar FeatureCodeFromName(const LanguageFile& file, const QString& name) {
  for (int place = 0; place < kFeatureCodes; ++place) {
    const auto entry = file.FeatureName(place);
    if (entry && (*entry == name || AsStored(*entry) == name)) return QChar(u'A' + place);
  }
  return {};
}

}  // namespace ModuleLanguage
