// The one place where bytes become text for the eye and back. Files, frames and pages hold one byte
// per character in a single-byte code page; windows show Unicode.
#pragma once

#include <array>
#include <optional>

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>

namespace Brivon1 {

/// A single-byte code page in which every one of the 256 byte values has its own character, also
/// those that it leaves undefined, and comes back as the same byte.
class CodePage {
 public:
  static constexpr int kWestern = 1252;

  /// Whether there is a code page of this number: 874 and 1250 to 1258.
  static bool IsKnown(int number);

  /// The code page of this number, 1252 where there is none.
  explicit CodePage(int number);

  /// The code page that the program works with: that of the process's environment (see
  /// SystemCodePage) until another one is set.
  static const CodePage& System();

  /// Sets it; the environment's where there is no code page of this number.
  static void SetSystem(int number);

  int Number() const { return number_; }

  QString ToText(QByteArrayView bytes) const;

  QChar ToCharacter(char byte) const { return text_[static_cast<unsigned char>(byte)]; }

  /// Whether a byte is neither a control character nor one that the code page leaves undefined.
  bool IsPrintable(char byte) const;

  /// The byte of a character, or nothing when the code page has none for it.
  std::optional<char> ToByte(QChar character) const;

  /// The bytes of a text, or nothing when the code page lacks one of its letters. What ToText gave
  /// has its own bytes again. A letter that has none as it is written is composed ("e" and an acute
  /// become "é"), and where the code page lacks the whole, it is taken apart into a letter and
  /// marks that the page has: Vietnamese is written so in 1258.
  std::optional<QByteArray> ToBytes(QStringView text) const;

 private:
  std::optional<QByteArray> BytesAsWritten(QStringView text) const;
  std::optional<QByteArray> BytesComposed(QStringView letter) const;

  int number_;
  std::array<QChar, 256> text_;
  QHash<QChar, char> bytes_;
};

/// The length of the first letter of a text that is not empty: a character and the marks, such as
/// accents, that follow it.
qsizetype LetterLength(QStringView text);

}  // namespace Brivon1
