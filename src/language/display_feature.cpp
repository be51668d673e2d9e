#include "language/display_feature.h"

#include "base/code_page.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr QChar kFirstCode = u'A';
constexpr int kFirstFeature = 2;  // the place that a language's list starts at

QString EnglishName(const DisplayFeature& feature) { return QString::fromLatin1(feature.name); }

int PlaceOfCode(QChar code) { return code.unicode() - kFirstCode.unicode(); }

}  // namespace

QString FeatureNameAtCode(int place) {
  for (const DisplayFeature& feature : kDisplayFeatures) {
    if (PlaceOfCode(QLatin1Char(feature.code)) == place) return EnglishName(feature);
  }
  return {};
}

FeatureNames::FeatureNames() {
  if (ModuleLanguage::IsLanguageActive()) file_.emplace();
}

QStringList FeatureNames::Entries() const {
  QStringList entries;
  if (!file_) {
    for (const DisplayFeature& feature : kDisplayFeatures) entries.append(EnglishName(feature));
    return entries;
  }
  for (int place = 0; place < ModuleLanguage::kFeatureCodes; ++place) {
    if (const auto entry = Entry(place)) entries.append(*entry);
  }
  return entries;
}

int FeatureNames::Preselected(const QString& text) const {
  const QStringList entries = Entries();
  if (file_) return static_cast<int>(entries.indexOf(text));
  for (int i = 0; i < entries.size(); ++i) {
    if (entries[i].toUpper() == text) return i;
  }
  return 0;
}

std::optional<QString> FeatureNames::Entry(int place) const {
  if (file_) {
    if (const auto entry = file_->FeatureName(place)) return entry;
  }
  const QString english = FeatureNameAtCode(place);
  return english.isEmpty() ? std::nullopt : std::optional(english);
}

QChar FeatureNames::Code(const QString& name) const { return KnownCode(name).value_or(kFirstCode); }

std::optional<QChar> FeatureNames::KnownCode(const QString& name) const {
  const QString wanted = name.trimmed();
  // No name is longer. A schedule may hold a megabyte, whose upper case would take minutes where a
  // letter such as "ß" becomes two: all that stands behind it is moved, each time.
  if (wanted.size() > ModuleLanguage::kLongestValue) return std::nullopt;
  const QString upper_case = wanted.toUpper();
  for (const DisplayFeature& feature : kDisplayFeatures) {
    if (EnglishName(feature).toUpper() == upper_case) return QLatin1Char(feature.code);
  }
  const QChar code = file_ ? ModuleLanguage::FeatureCodeFromName(*file_, wanted) : QChar();
  return code.isNull() ? std::nullopt : std::optional(code);
}

QChar FeatureNames::CodeOfEntry(const QString& chosen) const {
  if (!file_) return Code(chosen);
  for (int place = 0; place < ModuleLanguage::kFeatureCodes; ++place) {
    if (Entry(place) == chosen) return QChar(kFirstCode.unicode() + place);
  }
  return kFirstCode;
}

QString FeatureNames::First() const {
  return file_ ? Entry(kFirstFeature).value_or(QString()) : u"APPEAR"_s;
}

QString FeatureNames::ToPreselect(const QString& stored) const {
  const QString name = stored.trimmed();
  return file_ ? Entry(PlaceOfCode(Code(name))).value_or(name) : name.toUpper();
}

QString FeatureNames::ToStore(const QString& chosen, const QString& before) const {
  const QChar code = CodeOfEntry(chosen);
  if (!before.trimmed().isEmpty() && !KnownCode(before) && code == kFirstCode) return before;
  const CodePage& code_page = CodePage::System();
  const auto bytes = code_page.ToBytes(chosen);
  const bool fits = bytes && bytes->size() <= kFeatureField && !chosen.trimmed().isEmpty();
  if (fits && KnownCode(code_page.ToText(*bytes)) == code) return chosen;
  const QString english = FeatureNameAtCode(PlaceOfCode(code));
  return english.isEmpty() ? FeatureNameAtCode(0) : english;
}

}  // namespace Brivon1
