#include "base/system_code_page.h"

#include <QLocale>
#include <QString>

#include "base/code_page.h"

namespace Brivon1 {
namespace {

/// `name` with the script that a modifier stands for behind the language, as QLocale reads it.
QByteArray WithScript(const QByteArray& name, const QByteArray& modifier) {
  QByteArray script;
  if (modifier == "latin") script = "_Latn";
  if (modifier == "cyrillic") script = "_Cyrl";
  const qsizetype end = name.indexOf('_');
  return end < 0 ? name + script : name.first(end) + script + name.sliced(end);
}

int CodePageOfScript(QLocale::Script script) {
  switch (script) {
    case QLocale::CyrillicScript:
      return 1251;
    case QLocale::GreekScript:
      return 1253;
    case QLocale::HebrewScript:
      return 1255;
    case QLocale::ArabicScript:
      return 1256;
    case QLocale::ThaiScript:
      return 874;
    default:
      return CodePage::kWestern;
  }
}

int CodePageOfLanguage(const QLocale& locale) {
  switch (locale.language()) {
    case QLocale::Polish:
    case QLocale::Czech:
    case QLocale::Slovak:
    case QLocale::Hungarian:
    case QLocale::Slovenian:
    case QLocale::Croatian:
    case QLocale::Romanian:
    case QLocale::Albanian:
    case QLocale::Turkmen:
      return 1250;
    case QLocale::Bosnian:
    case QLocale::Serbian:
      return locale.script() == QLocale::LatinScript ? 1250 : 1251;
    case QLocale::Russian:
    case QLocale::Ukrainian:
    case QLocale::Belarusian:
    case QLocale::Bulgarian:
    case QLocale::Macedonian:
    case QLocale::Kazakh:
    case QLocale::Kirghiz:
    case QLocale::Mongolian:
    case QLocale::Tatar:
    case QLocale::Tajik:
    case QLocale::Bashkir:
    case QLocale::Sakha:
      return 1251;
    case QLocale::Greek:
      return 1253;
    case QLocale::Turkish:
      return 1254;
    case QLocale::Azerbaijani:
    case QLocale::Uzbek:
      return locale.script() == QLocale::CyrillicScript ? 1251 : 1254;
    case QLocale::Hebrew:
      return 1255;
    case QLocale::Arabic:
    case QLocale::Persian:
    case QLocale::Urdu:
    case QLocale::Uighur:
    case QLocale::CentralKurdish:
      return 1256;
    case QLocale::Estonian:
    case QLocale::Latvian:
    case QLocale::Lithuanian:
      return 1257;
    case QLocale::Vietnamese:
      return 1258;
    case QLocale::Thai:
      return 874;
    default:
      return CodePageOfScript(locale.script());
  }
}

}  // namespace

int SystemCodePage(const Environment& environment) {
  if (environment.ansi_code_page) {
    const int number = *environment.ansi_code_page;
    return CodePage::IsKnown(number) ? number : CodePage::kWestern;
  }
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const QByteArray locale = environment.variable(name);
    if (!locale.isEmpty()) return CodePageOfLocale(locale);
  }
  return CodePage::kWestern;
}

int CodePageOfLocale(const QByteArray& locale) {
  const qsizetype at = locale.indexOf('@');
  const QByteArray modifier = at < 0 ? QByteArray() : locale.sliced(at + 1);
  QByteArray name = at < 0 ? locale : locale.first(at);
  if (const qsizetype dot = name.indexOf('.'); dot >= 0) name.truncate(dot);
  return CodePageOfLanguage(QLocale(QString::fromLatin1(WithScript(name, modifier))));
}

}  // namespace Brivon1
