#include "widgets/toolkit_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

void UseToolkitLanguage(QObject* owner) {
  const QString name = ModuleLanguage::ReadLangString(u"Language"_s, u"Locale"_s, QString());
  const QLocale locale = name.isEmpty() ? QLocale::system() : QLocale(name);
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  for (const QString& catalogue : {u"qtbase"_s, u"qtserialport"_s}) {
    auto* translator = new QTranslator(owner);
    if (translator->load(locale, catalogue, u"_"_s, folder)) {
      QCoreApplication::installTranslator(translator);
    }
  }
}
