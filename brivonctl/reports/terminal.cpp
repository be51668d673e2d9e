#include "reports/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

int DescriptorOf(Stream stream) {
  return stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

Terminal LookAt(Stream stream) {
  Terminal terminal;
  const int descriptor = DescriptorOf(stream);
  terminal.has_size = ::isatty(descriptor) == 1;
  const QByteArray name = qgetenv("TERM");
  terminal.is_terminal = terminal.has_size && !name.isEmpty() && name != "dumb";
  terminal.has_colours = terminal.is_terminal && qEnvironmentVariableIsEmpty("NO_COLOR");
  winsize size = {};
  if (terminal.has_size && ::ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
    if (size.ws_col > 0) terminal.columns = size.ws_col;
    if (size.ws_row > 0) terminal.lines = size.ws_row;
  }
  return terminal;
}

QString Coloured(const QString& text, Colour colour, const Terminal& terminal) {
  if (!terminal.has_colours) return text;
  return u"\x1b[%1m%2\x1b[0m"_s.arg(static_cast<int>(colour)).arg(text);
}

QString Cut(const QString& text, int columns) {
  if (text.size() <= columns) return text;
  constexpr int kDots = 3;
  return text.left(std::max(columns - kDots, 0)) + u"..."_s.left(columns);
}

}  // namespace BrivonCtl
