#include "base/code_page.h"

#include <algorithm>

#include "base/code_page_tables.h"
#include "base/system_code_page.h"

namespace Brivon1 {
namespace {

/// More marks than a letter has; their order is worked out in quadratic time.
constexpr qsizetype kMostMarks = 8;

const CodePageTable* FindTable(int number) {
  const auto found =
      std::find_if(kCodePageTables.begin(), kCodePageTables.end(),
                   [number](const CodePageTable& table) { return table.number == number; });
  return found == kCodePageTables.end() ? nullptr : &*found;
}

CodePage& MutableSystem() {
  static CodePage code_page(SystemCodePage(ProcessEnvironment()));
  return code_page;
}

}  // namespace

bool CodePage::IsKnown(int number) { return FindTable(number) != nullptr; }

CodePage::CodePage(int number) : number_(IsKnown(number) ? number : kWestern) {
  const CodePageTable& table = *FindTable(number_);
  for (std::size_t value = 0; value < text_.size(); ++value) {
    text_[value] =
        value < 0x80 ? QChar(static_cast<char16_t>(value)) : QChar(table.upper_half[value - 0x80]);
    bytes_.insert(text_[value], static_cast<char>(value));
  }
}

const CodePage& CodePage::System() { return MutableSystem(); }

void CodePage::SetSystem(int number) {
  MutableSystem() = CodePage(IsKnown(number) ? number : SystemCodePage(ProcessEnvironment()));
}

QString CodePage::ToText(QByteArrayView bytes) const {
  QString text(bytes.size(), Qt::Uninitialized);
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    text[i] = ToCharacter(bytes[i]);
  }
  return text;
}

bool CodePage::IsPrintable(char byte) const {
  const QChar::Category category = ToCharacter(byte).category();
  return category != QChar::Other_Control && category != QChar::Other_PrivateUse;
}

std::optional<char> CodePage::ToByte(QChar character) const {
  const auto found = bytes_.constFind(character);
  return found == bytes_.constEnd() ? std::nullopt : std::optional<char>(*found);
}

std::optional<QByteArray> CodePage::ToBytes(QStringView text) const {
  if (auto bytes = BytesAsWritten(text)) return bytes;
  QByteArray bytes;
  while (!text.isEmpty()) {
    const QStringView letter = text.first(LetterLength(text));
    text = text.sliced(letter.size());
    std::optional<QByteArray> found = BytesAsWritten(letter);
    if (!found) found = BytesComposed(letter);
    if (!found) return std::nullopt;
    bytes += *found;
  }
  return bytes;
}

std::optional<QByteArray> CodePage::BytesAsWritten(QStringView text) const {
  QByteArray bytes;
  for (const QChar character : text) {
    const std::optional<char> byte = ToByte(character);
    if (!byte) return std::nullopt;
    bytes.append(*byte);
  }
  return bytes;
}

std::optional<QByteArray> CodePage::BytesComposed(QStringView letter) const {
  const QString parts = letter.toString().normalized(QString::NormalizationForm_D);
  // The mark that the page has in one with the letter need not be the first: "ậ" is "a", a dot
  // below and a circumflex, and in 1258 "â" and a dot below.
  QString whole = parts.first(1);
  QString marks;
  for (const QChar mark : QStringView(parts).sliced(1)) {
    const QString composed = (whole + mark).normalized(QString::NormalizationForm_C);
    if (composed.size() == 1 && ToByte(composed.front())) {
      whole = composed;
    } else {
      marks += mark;
    }
  }
  const QString text = whole + marks;
  auto bytes = BytesAsWritten(text);
  // Of two marks in the same place the nearer one must stay the nearer one.
  if (bytes && text.normalized(QString::NormalizationForm_D) != parts) bytes.reset();
  return bytes;
}

qsizetype LetterLength(QStringView text) {
  const qsizetype longest = std::min(text.size(), 1 + kMostMarks);
  qsizetype length = 1;
  while (length < longest && text[length].isMark()) ++length;
  return length;
}

}  // namespace Brivon1
