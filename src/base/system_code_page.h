// Which code page a system works with, by what it says about the language of its characters.
#pragma once

#include <functional>
#include <optional>

#include <QByteArray>

namespace Brivon1 {

/// What a system tells a program.
struct Environment {
  /// The value of an environment variable, empty where it is not set.
  std::function<QByteArray(const char* name)> variable;

  /// Windows: the number of the ANSI code page. Elsewhere there is none.
  std::optional<int> ansi_code_page;
};

/// The environment of the process.
Environment ProcessEnvironment();

/// The number of the single-byte code page of this environment: the ANSI code page where there is
/// one, else that of the language in the first of the variables LC_ALL, LC_CTYPE and LANG that is
/// not empty; 1252 for every language and page that has no other. The language of messages does
/// not count.
int SystemCodePage(const Environment& environment);

/// The number of the code page of a locale named as in these variables:
/// `language[_territory][.codeset][@modifier]`. Where a language is written in two scripts the
/// modifiers "latin" and "cyrillic" tell which. 1252 for a name that is none.
int CodePageOfLocale(const QByteArray& locale);

}  // namespace Brivon1
