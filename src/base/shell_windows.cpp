#include "base/shell.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

namespace Brivon1 {
namespace {

/// A console takes characters; its bytes would be read in a code page of its own.
int WriteToConsole(HANDLE console, const QString& text) {
  constexpr qsizetype kAtOnce = 8000;  // older consoles refuse 64 KiB
  for (qsizetype at = 0; at < text.size();) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(kAtOnce, text.size() - at));
    if (::WriteConsoleW(console, text.utf16() + at, size, &written, nullptr) == 0) {
      return static_cast<int>(::GetLastError());
    }
    if (written == 0) return ERROR_WRITE_FAULT;
    at += static_cast<qsizetype>(written);
  }
  return 0;
}

int WriteToFile(HANDLE file, const QByteArray& bytes, WhenFull when_full) {
  for (qsizetype at = 0; at < bytes.size();) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min<qsizetype>(bytes.size() - at, 1 << 20));
    if (::WriteFile(file, bytes.constData() + at, size, &written, nullptr) == 0) {
      return static_cast<int>(::GetLastError());
    }
    // Whoever shares a pipe has made it one that does not wait.
    if (written == 0 && when_full == WhenFull::kGiveUp) return ERROR_PIPE_BUSY;
    if (written == 0) ::Sleep(1);
    at += static_cast<qsizetype>(written);
  }
  return 0;
}

}  // namespace

std::vector<std::string> CommandLineWords(int argc, const char* const* argv) {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (words == nullptr) return {argv, argv + argc};
  std::vector<std::string> utf8;
  for (int i = 0; i < count; ++i) utf8.push_back(QString::fromWCharArray(words[i]).toStdString());
  ::LocalFree(words);
  return utf8;
}

QString TextOfWord(const std::string& word) { return QString::fromStdString(word); }

QByteArray StreamText(const QString& text) { return text.toUtf8(); }

int WriteToStream(Stream stream, const QByteArray& bytes, WhenFull when_full) {
  const HANDLE handle =
      ::GetStdHandle(stream == Stream::kOutput ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  // A program that was started without a stream writes it to nobody.
  if (handle == nullptr || handle == INVALID_HANDLE_VALUE) return 0;
  DWORD mode = 0;
  const bool is_console = ::GetConsoleMode(handle, &mode) != 0;
  return is_console ? WriteToConsole(handle, QString::fromUtf8(bytes))
                    : WriteToFile(handle, bytes, when_full);
}

bool IsListenerGone(int error) { return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA; }

}  // namespace Brivon1
