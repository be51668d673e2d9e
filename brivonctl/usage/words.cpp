#include "usage/words.h"

#include <charconv>
#include <cstdio>

#include <QFile>

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

QString TextOf(const std::string& word) { return QFile::decodeName(word.c_str()); }

void Complain(const QString& text) {
  QString line = text;
  line.replace(u'\n', u' ').replace(u'\r', u' ');
  const QByteArray bytes = (u"brivonctl: "_s + line + u'\n').toLocal8Bit();
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}

}  // namespace BrivonCtl
