#include "page/display_feature.h"

#include "app/module_language.h"

namespace Brivon1 {

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

QChar FeatureCode(const QString& name) {
  const QString wanted = name.trimmed();
  for (const DisplayFeature& feature : kDisplayFeatures) {
    if (QString::fromLatin1(feature.name).toUpper() == wanted.toUpper()) {
      return QLatin1Char(feature.code);
    }
  }
  const QChar code =
      ModuleLanguage::IsLanguageActive() ? ModuleLanguage::FeatureCodeFromName(wanted) : QChar();
  return code.isNull() ? QChar(u'A') : code;
}

}  // namespace Brivon1
