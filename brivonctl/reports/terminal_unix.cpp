#include "reports/terminal.h"

#include <langinfo.h>
#include <locale.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QByteArray>

namespace BrivonCtl {
namespace {

/// The program itself may run in the "C" language; what counts is that of its environment.
bool IsEnvironmentUtf8() {
  const locale_t locale = ::newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) return false;
  const bool is_utf8 = qstrcmp(::nl_langinfo_l(CODESET, locale), "UTF-8") == 0;
  ::freelocale(locale);
  return is_utf8;
}

}  // namespace

Terminal LookAt(Stream stream) {
  Terminal terminal;
  const int descriptor = stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
  terminal.has_size = ::isatty(descriptor) == 1;
  const QByteArray name = qgetenv("TERM");
  terminal.is_terminal = terminal.has_size && !name.isEmpty() && name != "dumb";
  terminal.has_colours = terminal.is_terminal && qEnvironmentVariableIsEmpty("NO_COLOR");
  const QByteArray colours = qgetenv("COLORTERM");
  terminal.has_every_colour =
      terminal.has_colours && (colours == "truecolor" || colours == "24bit");
  terminal.shows_every_character = terminal.is_terminal && IsEnvironmentUtf8();
  winsize size = {};
  if (terminal.has_size && ::ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
    if (size.ws_col > 0) terminal.columns = size.ws_col;
    if (size.ws_row > 0) terminal.lines = size.ws_row;
  }
  return terminal;
}

}  // namespace BrivonCtl
