#include "language/display_feature.h"

#include "base/code_page.h"
#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::LanguageFile;

constexpr QChar kFirstCode = u'A';
constexpr int kPlaces = 10;       // of codes, "A" to "J"
constexpr int kFirstFeature = 2;  // the place that a language's list starts at

/// The code of a name that is known here.
std::optional<QChar> KnownCode(const QString& name) {
  const QString wanted = name.trimmed();
  // No name is longer. A schedule may hold a megabyte, whose upper case would take minutes where a
  // letter such as "ß" becomes two: all that stands behind it is moved, each time.
  if (wanted.size() > ModuleLanguage::kLongestValue) return std::nullopt;
  const QString upper_case = wanted.toUpper();
  for (const DisplayFeature& feature : kDisplayFeatures) {
    if (QString::fromLatin1(feature.name).toUpper() == upper_case) {
      return QLatin1Char(feature.code);
    }
  }
  const QChar code =
      ModuleLanguage::IsLanguageActive() ? ModuleLanguage::FeatureCodeFromName(wanted) : QChar();
  return code.isNull() ? std::nullopt : std::optional(code);
}

/// The code of an entry of the property dialog's list, by its place there.
QChar CodeOfEntry(const QString& chosen) {
  if (!ModuleLanguage::IsLanguageActive()) return FeatureCode(chosen);
  const LanguageFile file;
  for (int place = 0; place < kPlaces; ++place) {
    if (FeatureEntry(file, place) == chosen) return QChar(kFirstCode.unicode() + place);
  }
  return kFirstCode;
}

}  // namespace

int PreselectedFeature(const QString& text) {
  for (std::size_t i = 0; i < kDisplayFeatures.size(); ++i) {
    if (QString::fromLatin1(kDisplayFeatures[i].name).toUpper() == text) return static_cast<int>(i);
  }
  return 0;
}

QString FeatureNameAtCode(int place) {
  for (const DisplayFeature& feature : kDisplayFeatures) {
    if (feature.code - 'A' == place) return QString::fromLatin1(feature.name);
  }
  return {};
}

QChar FeatureCode(const QString& name) { return KnownCode(name).value_or(kFirstCode); }

std::optional<QString> FeatureEntry(const LanguageFile& file, int place) {
  const auto entry = file.Find(u"frmDelay"_s, u"ListFeature.List(%1)"_s.arg(place));
  if (entry) return entry;
  const QString english = FeatureNameAtCode(place);
  return english.isEmpty() ? std::nullopt : std::optional(english);
}

QString FirstFeature() {
  if (!ModuleLanguage::IsLanguageActive()) return u"APPEAR"_s;
  return FeatureEntry(LanguageFile(), kFirstFeature).value_or(QString());
}

QString FeatureToPreselect(const QString& stored) {
  const QString name = stored.trimmed();
  if (!ModuleLanguage::IsLanguageActive()) return name.toUpper();
  const int place = FeatureCode(name).unicode() - kFirstCode.unicode();
  return FeatureEntry(LanguageFile(), place).value_or(name);
}

QString FeatureToStore(const QString& chosen, const QString& before) {
  const QChar code = CodeOfEntry(chosen);
  if (!before.trimmed().isEmpty() && !KnownCode(before) && code == kFirstCode) return before;
  const CodePage& code_page = CodePage::System();
  const auto bytes = code_page.ToBytes(chosen);
  const bool fits = bytes && bytes->size() <= kFeatureField && !chosen.trimmed().isEmpty();
  if (fits && KnownCode(code_page.ToText(*bytes)) == code) return chosen;
  const QString english = FeatureNameAtCode(code.unicode() - kFirstCode.unicode());
  return english.isEmpty() ? FeatureNameAtCode(0) : english;
}

}  // namespace Brivon1
