#include "reports/terminal.h"

#include <windows.h>

#include <QByteArray>

namespace BrivonCtl {

Terminal LookAt(Stream stream) {
  Terminal terminal;
  const HANDLE handle =
      ::GetStdHandle(stream == Stream::kOutput ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  DWORD mode = 0;
  terminal.has_size = ::GetConsoleMode(handle, &mode) != 0;
  if (!terminal.has_size) return terminal;
  // A console that follows escape sequences may still have to be told to.
  terminal.is_terminal = qgetenv("TERM") != "dumb" &&
                         ((mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 ||
                          ::SetConsoleMode(handle, mode | ENABLE_PROCESSED_OUTPUT |
                                                       ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0);
  terminal.has_colours = terminal.is_terminal && qEnvironmentVariableIsEmpty("NO_COLOR");
  terminal.has_every_colour = terminal.has_colours;
  terminal.shows_every_character = terminal.is_terminal;
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (::GetConsoleScreenBufferInfo(handle, &info) != 0) {
    terminal.columns = info.srWindow.Right - info.srWindow.Left + 1;
    terminal.lines = info.srWindow.Bottom - info.srWindow.Top + 1;
  }
  return terminal;
}

}  // namespace BrivonCtl
