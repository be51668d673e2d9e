#include "core/code_page.h"

#include <QStringDecoder>

namespace Brivon1 {
namespace {

constexpr const char* kWestern = "windows-1252";

QChar Decode(const char* code_page, int value) {
  QStringDecoder decoder(code_page, QStringDecoder::Flag::Stateless);
  const char byte = static_cast<char>(value);
  const QString text = decoder(QByteArrayView(&byte, 1));
  if (text.size() == 1 && text.front() != QChar::ReplacementCharacter) return text.front();
  return QChar(value < 0xA0 ? value : 0xF700 + value);
}

}  // namespace

CodePage::CodePage(const char* name) {
  const char* known = QStringDecoder(name).isValid() ? name : kWestern;
  for (int value = 0; value < 256; ++value) {
    QChar character = value < 0x80 ? QChar(value) : Decode(known, value);
    if (bytes_.contains(character)) character = QChar(0xF700 + value);
    text_[static_cast<std::size_t>(value)] = character;
    bytes_.insert(character, static_cast<char>(value));
  }
}

const char* CodePage::NameFor(const QLocale& locale) {
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
      return "windows-1250";
    case QLocale::Bosnian:
    case QLocale::Serbian:
      return locale.script() == QLocale::LatinScript ? "windows-1250" : "windows-1251";
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
      return "windows-1251";
    case QLocale::Greek:
      return "windows-1253";
    case QLocale::Turkish:
      return "windows-1254";
    case QLocale::Azerbaijani:
    case QLocale::Uzbek:
      return locale.script() == QLocale::CyrillicScript ? "windows-1251" : "windows-1254";
    case QLocale::Hebrew:
      return "windows-1255";
    case QLocale::Arabic:
    case QLocale::Persian:
    case QLocale::Urdu:
    case QLocale::Uighur:
    case QLocale::CentralKurdish:
      return "windows-1256";
    case QLocale::Estonian:
    case QLocale::Latvian:
    case QLocale::Lithuanian:
      return "windows-1257";
    case QLocale::Vietnamese:
      return "windows-1258";
    case QLocale::Thai:
      return "windows-874";
    default:
      return kWestern;
  }
}

const CodePage& CodePage::System() {
  static const CodePage code_page(NameFor(QLocale::system()));
  return code_page;
}

QString CodePage::ToText(QByteArrayView bytes) const {
  QString text(bytes.size(), Qt::Uninitialized);
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    text[i] = text_[static_cast<unsigned char>(bytes[i])];
  }
  return text;
}

std::optional<char> CodePage::ToByte(QChar character) const {
  const auto found = bytes_.constFind(character);
  return found == bytes_.constEnd() ? std::nullopt : std::optional<char>(*found);
}

std::optional<QByteArray> CodePage::ToBytes(QStringView text) const {
  QByteArray bytes;
  for (const QChar character : text) {
    const std::optional<char> byte = ToByte(character);
    if (!byte) return std::nullopt;
    bytes.append(*byte);
  }
  return bytes;
}

}  // namespace Brivon1
