#include "virtual_panel/start_up.h"

#include <windows.h>

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

bool IsStreamOpen(DWORD stream) {
  const HANDLE handle = ::GetStdHandle(stream);
  return handle != nullptr && handle != INVALID_HANDLE_VALUE;
}

// Runs in a thread that the system starts for it.
BOOL WINAPI Quit(DWORD signal) {
  QCoreApplication* application = QCoreApplication::instance();
  if (application == nullptr) return FALSE;  // that is, the system ends the program
  QMetaObject::invokeMethod(application, &QCoreApplication::quit, Qt::QueuedConnection);
  // Once a handler returns from one of the others, the system ends the program.
  if (signal != CTRL_C_EVENT && signal != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
  return TRUE;
}

}  // namespace

void OpenStreams() {
  if (IsStreamOpen(STD_OUTPUT_HANDLE) && IsStreamOpen(STD_ERROR_HANDLE)) return;
  if (::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    if (IsStreamOpen(stream)) continue;
    ::SetStdHandle(stream, ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         0, nullptr));
  }
}

bool HasDisplay() { return true; }

void QuitOnSignals(QCoreApplication* /*application*/) { ::SetConsoleCtrlHandler(Quit, TRUE); }

QString PtyHelp() { return u"Not on Windows, which has no pseudo-terminals."_s; }

}  // namespace VirtualPanel
