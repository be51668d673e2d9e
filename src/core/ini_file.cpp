#include "core/ini_file.h"

#include <algorithm>
#include <utility>

#include <QFile>
#include <QFileInfo>

#include "core/files.h"
#include "core/text.h"

namespace Brivon1 {
namespace {

constexpr qint64 kLargestFile = 4 << 20;

bool IsSpace(char c) { return IsBlank(c) || c == '\r' || c == '\n'; }

QByteArrayView Trimmed(QByteArrayView text) {
  while (!text.isEmpty() && IsSpace(text.front())) text = text.sliced(1);
  while (!text.isEmpty() && IsSpace(text.back())) text.chop(1);
  return text;
}

QByteArray HashKey(QByteArrayView section, QByteArrayView key) {
  section = Trimmed(section);
  key = Trimmed(key);
  QByteArray hash_key;
  hash_key.reserve(section.size() + 1 + key.size());
  hash_key.append(section).append('\n').append(key);
  return std::move(hash_key).toLower();
}

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

}  // namespace

IniFile::IniFile(const QByteArray& content) {
  for (qsizetype from = 0; from < content.size();) {
    const qsizetype end = content.indexOf('\n', from);
    const qsizetype to = end < 0 ? content.size() : end + 1;
    lines_.append(content.mid(from, to - from));
    from = to;
  }
  Index();
}

IniFile IniFile::Load(const QString& path) { return Read(path).value_or(IniFile()); }

std::optional<IniFile> IniFile::Read(const QString& path) {
  if (!FileExists(path)) return QFileInfo::exists(path) ? std::nullopt : std::optional(IniFile());
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray content = file.read(kLargestFile + 1);
  if (content.size() > kLargestFile || file.error() != QFileDevice::NoError) return std::nullopt;
  return IniFile(content);
}

void IniFile::Index() {
  keys_.clear();
  section_ends_.clear();
  QByteArray section;
  qsizetype* section_end = nullptr;  // of this section, until the next one is entered
  // Keys before the first section have none, nor have those of its namesake further down.
  bool in_section = false;
  for (qsizetype i = 0; i < lines_.size(); ++i) {
    QByteArrayView line = lines_[i];
    if (i == 0 && line.startsWith(QByteArrayView("\xEF\xBB\xBF"))) line = line.sliced(3);
    line = Trimmed(line);
    if (line.startsWith('[')) {
      const qsizetype close = line.indexOf(']');
      section =
          Trimmed(line.sliced(1, (close < 0 ? line.size() : close) - 1)).toByteArray().toLower();
      in_section = !section_ends_.contains(section);
    }
    if (!in_section || line.isEmpty()) continue;
    if (line.front() == '[') section_end = &section_ends_[section];
    *section_end = i + 1;
    const qsizetype equals = line.indexOf('=');
    if (line.front() == '[' || line.front() == ';' || equals < 0) continue;
    const QByteArray key = HashKey(section, line.first(equals));
    if (!keys_.contains(key)) keys_.insert(key, i);
  }
}

std::optional<QByteArray> IniFile::Value(QByteArrayView section, QByteArrayView key,
                                         qsizetype longest) const {
  const auto found = keys_.constFind(HashKey(section, key));
  if (found == keys_.constEnd()) return std::nullopt;
  const QByteArrayView line = lines_[*found];
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
  QByteArray new_line = key.toByteArray() + '=' + value.toByteArray();
  if (const auto found = keys_.constFind(HashKey(section, key)); found != keys_.constEnd()) {
    QByteArray& line = lines_[*found];
    line = line.first(line.indexOf('=') + 1) + value.toByteArray() + LineEnd(line).toByteArray();
    return;
  }
  QByteArray line_end = lines_.isEmpty() ? QByteArray() : LineEnd(lines_.front()).toByteArray();
  if (line_end.isEmpty()) line_end = "\r\n";
  new_line += line_end;
  const auto end = section_ends_.constFind(Trimmed(section).toByteArray().toLower());
  const bool has_section = end != section_ends_.constEnd();
  const qsizetype at = has_section ? *end : lines_.size();
  if (at > 0 && LineEnd(lines_[at - 1]).isEmpty()) lines_[at - 1] += line_end;
  lines_.insert(at, new_line);
  if (!has_section) lines_.insert(at, '[' + section.toByteArray() + ']' + line_end);
  Index();
}

void IniFile::RemoveKey(QByteArrayView section, QByteArrayView key) {
  const QByteArray hash_key = HashKey(section, key);
  for (auto found = keys_.constFind(hash_key); found != keys_.constEnd();
       found = keys_.constFind(hash_key)) {
    lines_.removeAt(*found);
    Index();
  }
}

}  // namespace Brivon1
