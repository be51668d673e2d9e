// INI files: reading changes no byte, a change changes one line, and everything else in the file
// reads as before. Behind its last NUL an input names the section, key and value of the change.
#include <optional>

#include <QList>

#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "store/ini_file.h"

namespace Fuzz {
namespace {

using Brivon1::IniFile;

struct Change {
  QByteArray section;
  QByteArray key;
  QByteArray value;
};

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

QByteArray Trimmed(QByteArray text) {
  while (!text.isEmpty() && IsSpace(text.front())) text.remove(0, 1);
  while (!text.isEmpty() && IsSpace(text.back())) text.chop(1);
  return text;
}

/// A name that a line can hold and a caller would use: without what ends a name, and not empty.
QByteArray Name(QByteArray text, const char* otherwise) {
  for (const char mark : QByteArrayView("[]=;\r\n")) text.replace(mark, "");
  text = Trimmed(text).left(40);
  return Trimmed(text).isEmpty() ? QByteArray(otherwise) : Trimmed(text);
}

Change ChangeOf(const QByteArray& text) {
  const QList<QByteArray> parts = text.split('\n');
  QByteArray value = parts.value(2);
  value.replace('\r', "");
  return {Name(parts.value(0), "Dimension Config"), Name(parts.value(1), "ID012"), value};
}

/// What a reader gets of a value that was written as `value`.
QByteArray ReadBack(const QByteArray& value) {
  QByteArray text = Trimmed(value);
  const bool is_quoted = text.size() >= 2 && text.front() == text.back() &&
                         (text.front() == '"' || text.front() == '\'');
  return is_quoted ? text.mid(1, text.size() - 2) : text;
}

QList<QByteArray> Lines(const QByteArray& content) {
  QList<QByteArray> lines = content.split('\n');
  if (lines.last().isEmpty()) lines.removeLast();
  return lines;
}

/// Every section and key that a line of the content may mean, in the lines' order, and no more than
/// some dozens.
QList<Change> NamesIn(const QByteArray& content) {
  constexpr qsizetype kMost = 40;
  QList<Change> names;
  QByteArray section;
  for (const QByteArray& whole : Lines(content)) {
    const QByteArray line = Trimmed(whole);
    if (line.startsWith('[')) section = line.mid(1, qMax<qsizetype>(line.indexOf(']') - 1, -1));
    const qsizetype equals = line.indexOf('=');
    if (equals > 0) names.append({section, line.first(equals), {}});
    if (names.size() == kMost) break;
  }
  return names;
}

bool IsSame(const Change& one, const Change& other) {
  return Trimmed(one.section).toLower() == Trimmed(other.section).toLower() &&
         Trimmed(one.key).toLower() == Trimmed(other.key).toLower();
}

void MustReadAlike(const IniFile& before, const IniFile& after, const QList<Change>& names,
                   const Change& but) {
  for (const Change& name : names) {
    if (IsSame(name, but)) continue;
    Must(before.Value(name.section, name.key) == after.Value(name.section, name.key),
         "a key that was not changed reads as before");
  }
}

/// All lines but one are there in their order; a line end may have come to the last one.
void MustDifferInOneLine(const QByteArray& before, const QByteArray& after) {
  const QList<QByteArray> old_lines = Lines(before);
  const QList<QByteArray> new_lines = Lines(after);
  Must(old_lines.size() == new_lines.size(), "a value takes its key's line");
  int changed = 0;
  for (qsizetype line = 0; line < old_lines.size(); ++line) {
    if (old_lines[line] != new_lines[line]) ++changed;
  }
  Must(changed <= 1, "one line changes");
}

void MustTakeAValue(const QByteArray& content, const Change& change, const QList<Change>& names) {
  const IniFile before(content);
  IniFile after(content);
  const bool is_there = after.Value(change.section, change.key).has_value();
  after.SetValue(change.section, change.key, change.value);
  const QByteArray written = after.Content();
  const IniFile again(written);
  const QByteArray expected = ReadBack(change.value).left(65535);
  Must(after.Value(change.section, change.key) == expected, "a value is there at once");
  Must(again.Value(change.section, change.key) == expected, "and when the file is read again");
  MustReadAlike(before, after, names, change);
  MustReadAlike(before, again, names, change);
  if (is_there) {
    MustDifferInOneLine(content, written);
  } else {
    Must(written.size() > content.size(), "a new key takes nothing away");
  }
  IniFile twice(written);
  twice.SetValue(change.section, change.key, change.value);
  Must(twice.Content() == written, "the same value again changes nothing");
}

void MustLoseAKey(const QByteArray& content, const Change& change, const QList<Change>& names) {
  const IniFile before(content);
  IniFile after(content);
  const bool is_there = after.Value(change.section, change.key).has_value();
  after.RemoveKey(change.section, change.key);
  const QByteArray written = after.Content();
  Must(!after.Value(change.section, change.key), "a removed key is gone");
  const IniFile again(written);
  Must(!again.Value(change.section, change.key), "none of its repetitions comes to light");
  MustReadAlike(before, again, names, change);
  Must(is_there || written == content, "what is not there takes nothing with it");
  after.SetValue(change.section, change.key, change.value);
  Must(IniFile(after.Content()).Value(change.section, change.key) ==
           ReadBack(change.value).left(65535),
       "a removed key can come back");
  MustReadAlike(before, IniFile(after.Content()), names, change);
}

}  // namespace

void CheckIniFile(const QByteArray& input) {
  const qsizetype end = input.lastIndexOf('\0');
  const QByteArray content = end < 0 ? input : input.first(end);
  const Change change = ChangeOf(end < 0 ? QByteArray() : input.mid(end + 1));
  const QList<Change> names = NamesIn(content);

  const IniFile file(content);
  Must(file.Content() == content, "a file holds its bytes");
  for (const Change& name : names) {
    const auto value = file.Value(name.section, name.key);
    Must(!value || content.contains(*value), "a value stands in the file");
    Must(file.Integer(name.section, name.key, -1) >= -1, "a number has no sign");
    Must(file.Value(name.section.toUpper(), name.key.toLower()) == value, "case does not count");
    Must(file.Value(name.section, name.key, 3).value_or(QByteArray()).size() <= 3,
         "no more than was asked for");
  }
  Must(file.Content() == content, "reading changes no byte");
  MustTakeAValue(content, change, names);
  MustLoseAKey(content, change, names);
  for (const Change& name : names) {
    if (name.section.isEmpty() || Name(name.key, "") != name.key) continue;
    MustLoseAKey(content, {name.section, name.key, "value"}, names);
    break;
  }
}

}  // namespace Fuzz
