// The language file: whatever a translator wrote, every caption, message and effect has a text that
// can be shown, and an effect that is chosen by its name is the one that a panel is sent.
#include <optional>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "fuzz/files.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "language/caption_tables.h"
#include "language/display_feature.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "store/ini_file.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

using Brivon1::FeatureNames;
using ModuleLanguage::LanguageFile;

constexpr QLatin1String kFile("langSetting.INI");

/// Lets the language be active as long as it lives.
class ActiveLanguage {
 public:
  ActiveLanguage() { ModuleLanguage::SetLanguageActive(true); }
  ~ActiveLanguage() { ModuleLanguage::SetLanguageActive(false); }

  ActiveLanguage(const ActiveLanguage&) = delete;
  ActiveLanguage& operator=(const ActiveLanguage&) = delete;
};

void MustBeShowable(const QString& text) {
  Must(text.size() <= ModuleLanguage::kLongestValue, "a text is cut");
  Must(text.isValidUtf16(), "no text ends with half a character");
}

/// A text that a file may hold, in both forms in which it is looked for.
struct Key {
  Key(const char* section_name, const QString& key_name)
      : section(QString::fromLatin1(section_name)),
        key(key_name),
        section_bytes(section.toUtf8()),
        key_bytes(key.toUtf8()) {}

  QString section;
  QString key;
  QByteArray section_bytes;
  QByteArray key_bytes;
};

std::vector<Key> EveryKey() {
  std::vector<Key> all;
  for (const ModuleLanguage::CaptionTable& table : ModuleLanguage::CaptionTables()) {
    for (const QString& key : ModuleLanguage::CaptionKeys(table))
      all.emplace_back(table.window, key);
  }
  for (const ModuleLanguage::CaptionTable& table : ModuleLanguage::FurtherCaptions()) {
    for (const QString& key : ModuleLanguage::CaptionKeys(table)) {
      all.emplace_back(ModuleLanguage::kFurtherSection, key);
    }
  }
  for (const ModuleLanguage::FurtherText& text : ModuleLanguage::FurtherTexts()) {
    all.emplace_back(ModuleLanguage::kFurtherSection, QString::fromLatin1(text.key));
  }
  for (const ModuleLanguage::Message& message : ModuleLanguage::Messages()) {
    all.emplace_back(message.section, QString::fromLatin1(message.key));
  }
  return all;
}

void MustHaveCaptions(const LanguageFile& file, const Brivon1::IniFile& ini) {
  static const std::vector<Key> all = EveryKey();
  const QString missing = u"missing"_s;
  bool is_missing_tried = false;
  for (const Key& key : all) {
    const auto found = file.Find(key.section, key.key);
    const auto bytes = ini.Value(key.section_bytes, key.key_bytes);
    Must(found.has_value() == bytes.has_value(), "a text is there where its line is");
    if (!found) {
      if (!std::exchange(is_missing_tried, true)) {
        Must(file.Value(key.section, key.key, missing) == missing, "what is missing is English");
      }
      continue;
    }
    Must(bytes->isEmpty() == found->isEmpty(), "an empty value is an empty text");
    Must(file.Value(key.section, key.key, missing) == *found, "a text that is there is shown");
    MustBeShowable(*found);
  }
}

/// A few by the way that windows take: each lookup reads the file anew.
void MustTranslate(const LanguageFile& file) {
  const ModuleLanguage::Message& message = ModuleLanguage::Messages().front();
  const QString english = QString::fromLatin1(message.text);
  const QString shown =
      file.Value(QString::fromLatin1(message.section), QString::fromLatin1(message.key), english);
  Must(ModuleLanguage::TranslateMessage(english) == shown, "a message is the file's");
  Must(ModuleLanguage::TranslateMessage(u"no message"_s) == u"no message"_s,
       "an unknown message is shown as it is");
  const ModuleLanguage::FurtherText& text = ModuleLanguage::FurtherTexts().front();
  MustBeShowable(ModuleLanguage::TranslateText(QString::fromLatin1(text.text)));
  const QByteArray line = "ID012     16x128     Tri-Color     192.168.0.12:80";
  MustBeShowable(ModuleLanguage::ShownPanelLines({line}).first().left(60));
}

/// The code of the first place with this entry: what the list's choice means.
QChar CodeOfEntry(const FeatureNames& names, const QString& entry) {
  for (int place = 0; place < ModuleLanguage::kFeatureCodes; ++place) {
    if (names.Entry(place) == entry) return QChar(u'A' + place);
  }
  return {};
}

void MustMeanWhatWasChosen() {
  const FeatureNames names;
  const QStringList entries = names.Entries();
  Must(entries.size() >= static_cast<qsizetype>(Brivon1::kDisplayFeatures.size()) &&
           entries.size() <= ModuleLanguage::kFeatureCodes,
       "8 to 10 effects");
  for (const QString& entry : entries) {
    MustBeShowable(entry);
    const QString stored = names.ToStore(entry, QString());
    const auto bytes = Brivon1::CodePage::System().ToBytes(stored);
    Must(bytes && bytes->size() <= Brivon1::kFeatureField, "a name fits a schedule");
    const QChar chosen = CodeOfEntry(names, entry);
    const QChar sent = names.Code(Brivon1::CodePage::System().ToText(*bytes));
    // The two codes without an English name have none to fall back on.
    const bool has_english = chosen <= QChar(u'H');
    Must(sent == chosen || (!has_english && sent == QChar(u'A')), "what is chosen is what is sent");
    const int selected = names.Preselected(names.ToPreselect(stored));
    Must(selected >= 0 && CodeOfEntry(names, entries[selected]) ==
                              CodeOfEntry(names, names.Entry(sent.unicode() - u'A').value()),
         "what is stored is what is selected again");
  }
  Must(entries.contains(names.First()), "a new step has an effect of the list");
}

}  // namespace

void CheckLanguageFile(const QByteArray& input) {
  WriteFile(kFile, input);
  const ActiveLanguage active;
  const LanguageFile file;
  MustHaveCaptions(file, Brivon1::IniFile(input));
  MustTranslate(file);
  MustMeanWhatWasChosen();
  Must(ReadFile(kFile) == input, "a file that is read stays as it is");
}

}  // namespace Fuzz
