// Code pages: every byte becomes a character and the same byte again, and a text that has bytes is
// the same text when they are shown. The first byte of an input chooses the page; the rest is taken
// as bytes, and as the UTF-16 of a text that is pasted.
#include <array>

#include <QString>

#include "base/code_page.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"

namespace Fuzz {
namespace {

using Brivon1::CodePage;

/// Making them takes longer than asking them.
const CodePage& PageOf(unsigned char choice) {
  static const std::array<CodePage, 10> pages = {
      CodePage(874),  CodePage(1250), CodePage(1251), CodePage(1252), CodePage(1253),
      CodePage(1254), CodePage(1255), CodePage(1256), CodePage(1257), CodePage(1258)};
  return pages[choice % pages.size()];
}

QString AsUtf16(const QByteArray& bytes) {
  QString text;
  for (qsizetype at = 0; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    text.append(QChar(low, high));
  }
  return text;
}

QString TakenApart(const QString& text) { return text.normalized(QString::NormalizationForm_D); }

}  // namespace

void CheckCodePage(const QByteArray& input) {
  const CodePage& page = PageOf(input.isEmpty() ? 0 : static_cast<unsigned char>(input.front()));
  const QByteArray bytes = input.mid(1);
  const QString shown = page.ToText(bytes);
  Must(shown.size() == bytes.size(), "a character for each byte");
  Must(page.ToBytes(shown) == bytes, "what was shown has its own bytes again");
  for (qsizetype at = 0; at < shown.size(); ++at) {
    Must(page.ToByte(shown[at]) == bytes[at], "a character has one byte");
  }

  const QString pasted = AsUtf16(bytes);
  if (const auto found = page.ToBytes(pasted)) {
    Must(TakenApart(page.ToText(*found)) == TakenApart(pasted), "it is the same text in bytes");
    Must(found->size() <= 4 * pasted.size(), "a letter is not taken apart without end");
  }
  for (qsizetype at = 0; at < pasted.size();) {
    const qsizetype length = Brivon1::LetterLength(QStringView(pasted).sliced(at));
    Must(length >= 1 && at + length <= pasted.size(), "a letter lies within its text");
    at += length;
  }
}

}  // namespace Fuzz
