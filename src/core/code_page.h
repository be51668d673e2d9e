// The one place where bytes become text for the eye and back. Files, frames and pages hold one byte
// per character in the system's single-byte code page; windows show Unicode.
#pragma once

#include <array>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringView>

namespace Brivon1 {

/// A single-byte code page in which every one of the 256 byte values has its own character: a value
/// that the code page leaves undefined becomes the control character of the same number (0x80 to
/// 0x9F) or the private-use character U+F700 + value, and comes back as the same byte.
class CodePage {
 public:
  /// The code page called `name`, such as "windows-1251"; "windows-1252" where the name is unknown.
  explicit CodePage(const char* name);

  /// The name of the code page that a system in this language uses ("windows-1250" to
  /// "windows-1258" or "windows-874"; 1252 where nothing else holds).
  static const char* NameFor(const QLocale& locale);

  /// The code page of the system that the program runs on.
  static const CodePage& System();

  QString ToText(QByteArrayView bytes) const;

  /// The byte of a character, or nothing when the code page has none for it.
  std::optional<char> ToByte(QChar character) const;

  /// The bytes of a text, or nothing when the code page lacks one of its characters.
  std::optional<QByteArray> ToBytes(QStringView text) const;

 private:
  std::array<QChar, 256> text_;
  QHash<QChar, char> bytes_;
};

}  // namespace Brivon1
