#include "store/ini_file.h"

#include <algorithm>
#include <utility>

#include <QFile>
#include <QFileInfo>

#include "base/files.h"
#include "base/text.h"

namespace Brivon1 {
namespace {

bool IsSpace(char c) { return IsBlank(c) || c == '\r' || c == '\n'; }

QByteArrayView Trimmed(QByteArrayView text) {
  while (!text.isEmpty() && IsSpace(text.front())) text = text.sliced(1);
  while (!text.isEmpty() && IsSpace(text.back())) text.chop(1);
  return text;
}

/// The same bytes, not copied.
QByteArray Uncopied(QByteArrayView bytes) {
  return QByteArray::fromRawData(bytes.data(), bytes.size());
}

/// A name as it is compared. It is copied only where that changes it, and lives no longer than
/// `name` otherwise.
QByteArray Folded(QByteArrayView name) { return Uncopied(Trimmed(name)).toLower(); }

QByteArray FoldedCopy(QByteArrayView name) { return Trimmed(name).toByteArray().toLower(); }

QByteArrayView WithoutQuotes(QByteArrayView value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.sliced(1, value.size() - 2) : value;
}

QByteArrayView LineEnd(QByteArrayView line) {
  qsizetype length = 0;
  if (line.endsWith('\n')) length = line.endsWith(QByteArrayView("\r\n")) ? 2 : 1;
  return line.last(length);
}

/// Takes the first line, with its end, away from `rest`.
QByteArrayView TakeLine(QByteArrayView& rest) {
  const qsizetype end = rest.indexOf('\n');
  const QByteArrayView line = rest.first(end < 0 ? rest.size() : end + 1);
  rest = rest.sliced(line.size());
  return line;
}

bool IsHeading(QByteArrayView trimmed) { return trimmed.startsWith('['); }

}  // namespace

IniFile::IniFile(const QByteArray& content) : content_(content) {
  QByteArrayView rest = content_;
  while (!rest.isEmpty()) {
    const qsizetype begin = content_.size() - rest.size();
    QByteArrayView line = TakeLine(rest);
    if (begin == 0) {
      if (line.endsWith('\n')) line_end_ = LineEnd(line).toByteArray();
      if (line.startsWith("\xEF\xBB\xBF")) line = line.sliced(3);
    }
    line = Trimmed(line);
    if (!IsHeading(line)) continue;
    const qsizetype close = line.indexOf(']');
    const auto name = line.sliced(1, (close < 0 ? line.size() : close) - 1);
    qsizetype& number = numbers_[Folded(name)];
    if (number != 0) continue;  // the keys of a namesake do not count
    number = sections_.size();
    sections_.append(begin);
  }
}

IniFile IniFile::Load(const QString& path) { return Read(path).value_or(IniFile()); }

std::optional<IniFile> IniFile::Read(const QString& path) {
  if (!FileExists(path)) return QFileInfo::exists(path) ? std::nullopt : std::optional(IniFile());
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  QByteArray content;
  // In portions, because the toolkit would set aside room for the largest file each time.
  constexpr qint64 kPortion = 16384;
  while (content.size() <= kLargestIniFile) {
    const QByteArray portion = file.read(kPortion);
    if (portion.isEmpty()) break;
    content += portion;
  }
  if (content.size() > kLargestIniFile || file.error() != QFileDevice::NoError) return std::nullopt;
  return IniFile(content);
}

QByteArrayView IniFile::Text(qsizetype number) const {
  const qsizetype begin = sections_[number];
  const qsizetype end = sections_.value(number + 1, content_.size());
  return QByteArrayView(content_).sliced(begin, end - begin);
}

IniFile::Section& IniFile::TakenApart(qsizetype number) const {
  const auto [entry, is_new] = taken_apart_.try_emplace(number);
  Section& section = entry->second;
  if (!is_new) return section;
  QByteArrayView rest = Text(number);
  const qsizetype lines = rest.count('\n') + 1;
  section.lines.reserve(lines);
  section.keys.reserve(lines);
  section.lines.append(Uncopied(TakeLine(rest)));
  qsizetype last = 0;  // the last line that is not blank
  QByteArrayView below = rest;
  while (!rest.isEmpty()) {
    const QByteArrayView whole = TakeLine(rest);
    const QByteArrayView line = Trimmed(whole);
    if (IsHeading(line)) break;
    section.lines.append(Uncopied(whole));
    if (line.isEmpty()) continue;
    last = section.lines.size() - 1;
    below = rest;
    const qsizetype equals = line.indexOf('=');
    if (line.front() == ';' || equals < 0) continue;
    const QByteArray key = Folded(line.first(equals));
    qsizetype& first = section.keys[key];
    if (first == 0) {
      first = last;
    } else {
      section.repetitions[key].append(last);
    }
  }
  section.lines.resize(last + 1);
  section.below.append(Uncopied(below));
  return section;
}

qsizetype IniFile::NumberOf(QByteArrayView section) const {
  return numbers_.value(Folded(section));
}

QByteArray IniFile::Content() const {
  QByteArray content;
  content.reserve(content_.size());
  for (qsizetype number = 0; number < sections_.size(); ++number) {
    const auto found = taken_apart_.find(number);
    if (found == taken_apart_.end()) {
      content += Text(number);
      continue;
    }
    const Section& section = found->second;
    for (const QByteArray& line : section.lines) content += line;
    for (qsizetype i = section.below.size(); i > 0; --i) content += section.below[i - 1];
  }
  return content;
}

std::optional<QByteArray> IniFile::Value(QByteArrayView section, QByteArrayView key,
                                         qsizetype longest) const {
  const qsizetype number = NumberOf(section);
  if (number == 0) return std::nullopt;
  const Section& found = TakenApart(number);
  const qsizetype line_number = found.keys.value(Folded(key));
  if (line_number == 0) return std::nullopt;
  const QByteArrayView line = found.lines[line_number];
  const QByteArrayView value = WithoutQuotes(Trimmed(line.sliced(line.indexOf('=') + 1)));
  return value.first(std::min(value.size(), longest)).toByteArray();
}

int IniFile::Integer(QByteArrayView section, QByteArrayView key, int missing) const {
  const std::optional<QByteArray> value = Value(section, key);
  if (!value) return missing;
  if (value->isEmpty() || value->front() < '0' || value->front() > '9') return 0;
  return LeadingNumber(*value, 0, 2147483647);
}

void IniFile::SetValue(QByteArrayView section, QByteArrayView key, QByteArrayView value) {
  const qsizetype number = NumberOf(section);
  Section& found = TakenApart(number == 0 ? AddSection(section) : number);
  const QByteArray name = FoldedCopy(key);
  if (const qsizetype line_number = found.keys.value(name); line_number != 0) {
    QByteArray& line = found.lines[line_number];
    line = line.first(line.indexOf('=') + 1) + value.toByteArray() + LineEnd(line).toByteArray();
    return;
  }
  // Blank lines come to its end where the lines behind them are removed.
  while (Trimmed(found.lines.back()).isEmpty()) found.below.append(found.lines.takeLast());
  if (!found.lines.back().endsWith('\n')) found.lines.back() += line_end_;
  found.keys.insert(name, found.lines.size());
  found.lines.append(key.toByteArray() + '=' + value.toByteArray() + line_end_);
}

qsizetype IniFile::AddSection(QByteArrayView name) {
  EndLastLine();
  const qsizetype number = sections_.size();
  sections_.append(content_.size());
  numbers_.insert(FoldedCopy(name), number);
  taken_apart_[number].lines.append('[' + name.toByteArray() + ']' + line_end_);
  return number;
}

/// Gives the file's last line its end, so that another one can follow.
void IniFile::EndLastLine() {
  const qsizetype number = sections_.size() - 1;
  const bool is_as_read = taken_apart_.find(number) == taken_apart_.end();
  if (is_as_read && (content_.isEmpty() || content_.endsWith('\n'))) return;
  Section& section = TakenApart(number);
  const auto is_left = [](const QByteArray& text) { return !text.isEmpty(); };
  const auto below = std::find_if(section.below.begin(), section.below.end(), is_left);
  QByteArray& last = below != section.below.end()
                         ? *below
                         : *std::find_if(section.lines.rbegin(), section.lines.rend(), is_left);
  if (!last.endsWith('\n')) last += line_end_;
}

void IniFile::RemoveKey(QByteArrayView section, QByteArrayView key) {
  const qsizetype number = NumberOf(section);
  if (number == 0) return;
  Section& found = TakenApart(number);
  const QByteArray name = Folded(key);
  const qsizetype line = found.keys.take(name);
  if (line == 0) return;
  found.lines[line].clear();
  for (const qsizetype repetition : found.repetitions.take(name)) found.lines[repetition].clear();
}

}  // namespace Brivon1
