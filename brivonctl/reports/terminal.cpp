#include "reports/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

int DescriptorOf(Stream stream) {
  return stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
}

}  // namespace

void Print(Stream stream, const QByteArray& bytes) {
  const char* next = bytes.constData();
  auto left = static_cast<std::size_t>(bytes.size());
  while (left > 0) {
    const ssize_t size = ::write(DescriptorOf(stream), next, left);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return;
    next += size;
    left -= static_cast<std::size_t>(size);
  }
}

void PrintText(Stream stream, const QString& text) { Print(stream, text.toLocal8Bit()); }

Terminal LookAt(Stream stream) {
  Terminal terminal;
  const int descriptor = DescriptorOf(stream);
  terminal.is_terminal = ::isatty(descriptor) == 1 && qgetenv("TERM") != "dumb" &&
                         !qEnvironmentVariableIsEmpty("TERM");
  terminal.has_colours = terminal.is_terminal && qEnvironmentVariableIsEmpty("NO_COLOR");
  winsize size = {};
  if (terminal.is_terminal && ::ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
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
