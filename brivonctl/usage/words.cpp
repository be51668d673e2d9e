#include "usage/words.h"

#include <charconv>

#include <QList>

#include "base/shell.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

std::optional<int> WholeNumber(std::string_view word, int lowest, int highest) {
  int number = 0;
  const char* end = word.data() + word.size();
  if (word.empty() || word.front() < '0' || word.front() > '9') return std::nullopt;
  const auto [stopped_at, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || stopped_at != end || number < lowest || number > highest) {
    return std::nullopt;
  }
  return number;
}

QString TextOf(const std::string& word) { return Brivon1::TextOfWord(word); }

QString Escaped(char32_t character) {
  return u"\\x"_s + u"%1"_s.arg(static_cast<uint>(character), 2, 16, QLatin1Char('0')).toUpper();
}

QString Harmless(const QString& text) {
  QString harmless;
  for (const char32_t character : text.toUcs4()) {
    harmless += QChar::isPrint(character) ? QString::fromUcs4(&character, 1) : Escaped(character);
  }
  return harmless;
}

QString Printable(const QString& name) {
  constexpr qsizetype kLongestName = 300;
  if (name.isEmpty()) return u"\"\""_s;
  const QString printable = Harmless(name.left(kLongestName));
  return name.size() > kLongestName ? printable + u"..."_s : printable;
}

void Complain(const QString& text) {
  QString line = text;
  line.replace(u'\n', u' ').replace(u'\r', u' ');
  Brivon1::WriteToStream(Brivon1::Stream::kError,
                         Brivon1::StreamText(u"brivonctl: "_s + Harmless(line) + u'\n'));
}

}  // namespace BrivonCtl
