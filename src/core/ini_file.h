// A profile (INI) file in memory: read by the rules of the platform's private-profile functions,
// and changed key by key so that everything else in it survives byte for byte.
#pragma once

#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QString>

namespace Brivon1 {

/// The rules are those documented for GetPrivateProfileString, GetPrivateProfileInt and
/// WritePrivateProfileString: sections in square brackets, names without regard to case, the first
/// match wins, blanks around names and values do not count, one pair of enclosing quotes is
/// removed, and a line that begins with ";" is a comment.
class IniFile {
 public:
  IniFile() = default;
  explicit IniFile(const QByteArray& content);

  /// The file at `path`; an empty one where the file is missing, cannot be read, or is larger than
  /// 4 MiB.
  static IniFile Load(const QString& path);

  /// The same for a file that is to be changed and saved: an empty one where the file is missing,
  /// and nothing where there is one that was not read whole, so that no save can cut it short.
  static std::optional<IniFile> Read(const QString& path);

  /// The value of a key, or nothing when the section or the key is missing. At most `longest` bytes
  /// are returned, as a caller's buffer would hold them.
  std::optional<QByteArray> Value(QByteArrayView section, QByteArrayView key,
                                  qsizetype longest = 65535) const;

  /// The decimal digits at the start of a value as a number, at most 2147483647; 0 for a value that
  /// begins with anything else (a sign included), `missing` when there is no such key.
  int Integer(QByteArrayView section, QByteArrayView key, int missing) const;

  /// Gives a key its value: in the line it stands in, else in a new line at the end of the section,
  /// else in a new section at the end of the file. `value` holds no line end.
  void SetValue(QByteArrayView section, QByteArrayView key, QByteArrayView value);

  /// Deletes the line of a key, if there is one, and the repetitions behind it in the same section,
  /// which would come to light otherwise.
  void RemoveKey(QByteArrayView section, QByteArrayView key);

  /// The whole file.
  QByteArray Content() const { return lines_.join(); }

 private:
  void Index();

  QList<QByteArray> lines_;                    // each with its own line end
  QHash<QByteArray, qsizetype> keys_;          // "section\nkey", lower case -> line
  QHash<QByteArray, qsizetype> section_ends_;  // section, lower case -> line behind its last one
};

}  // namespace Brivon1
