// A profile (INI) file in memory: read by the rules of the platform's private-profile functions,
// and changed key by key so that everything else in it survives byte for byte.
#pragma once

#include <map>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QString>

namespace Brivon1 {

/// The size of the largest file that is read, in bytes.
inline constexpr qint64 kLargestIniFile = 4 << 20;

/// The rules are those documented for GetPrivateProfileString, GetPrivateProfileInt and
/// WritePrivateProfileString: sections in square brackets, names without regard to case, the first
/// match wins, blanks around names and values do not count, one pair of enclosing quotes is
/// removed, and a line that begins with ";" is a comment. Reading a file takes time in proportion
/// to its size, and any number of changes in proportion to it and to their number.
class IniFile {
 public:
  IniFile() = default;

  /// A file of these bytes, which `content` owns.
  explicit IniFile(const QByteArray& content);

  /// The file at `path`; an empty one where the file is missing, cannot be read, or is larger than
  /// kLargestIniFile.
  static IniFile Load(const QString& path);

  /// The same for a file that is to be changed and saved: an empty one where the file is missing,
  /// and nothing where there is one that was not read whole, so that no save can cut it short.
  static std::optional<IniFile> Read(const QString& path);

  bool HasSection(QByteArrayView section) const { return NumberOf(section) != 0; }

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
  QByteArray Content() const;

 private:
  /// A section that has been taken apart. A line keeps its number, whatever comes and goes.
  struct Section {
    QList<QByteArray> lines;  // with their ends, the heading first; a removed one is empty
    QHash<QByteArray, qsizetype> keys;                // name in lower case -> the line that counts
    QHash<QByteArray, QList<qsizetype>> repetitions;  // -> the lines below that name it again
    QList<QByteArray> below;  // the blank lines at its end and its namesakes, the lowest first
  };

  QByteArrayView Text(qsizetype number) const;
  Section& TakenApart(qsizetype number) const;
  qsizetype NumberOf(QByteArrayView section) const;
  qsizetype AddSection(QByteArrayView name);
  void EndLastLine();

  QByteArray content_;               // as it was read; all that is not changed points into it
  QByteArray line_end_ = "\r\n";     // of the lines to be added
  QList<qsizetype> sections_ = {0};  // where each begins; number 0 is what stands above them all
  QHash<QByteArray, qsizetype> numbers_;  // name in lower case -> the section that counts
  mutable std::map<qsizetype, Section> taken_apart_;
};

}  // namespace Brivon1
