// Asio brings <windows.h> along, and wants to be the first to.
#include "ports/asio_system.h"

#include <algorithm>

#include "ports/port_path.h"

namespace Ports {
namespace {

using boost::system::error_code;

error_code LastError() {
  return {static_cast<int>(::GetLastError()), boost::system::system_category()};
}

std::wstring Wide(const std::string& utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), length);
  return wide;
}

// All settings in one go, so that the port never stands at another speed and no control line drops
// in between.
error_code SetUp(HANDLE handle, unsigned baud_rate) {
  DCB settings{};
  settings.DCBlength = sizeof(settings);
  if (!::GetCommState(handle, &settings)) return LastError();
  settings.BaudRate = baud_rate;
  settings.ByteSize = 8;
  settings.Parity = NOPARITY;
  settings.StopBits = ONESTOPBIT;
  settings.fBinary = TRUE;
  settings.fParity = FALSE;
  settings.fErrorChar = FALSE;
  settings.fNull = FALSE;
  settings.fAbortOnError = FALSE;
  settings.fOutxCtsFlow = FALSE;
  settings.fOutxDsrFlow = FALSE;
  settings.fDsrSensitivity = FALSE;
  settings.fOutX = FALSE;
  settings.fInX = FALSE;
  settings.fDtrControl = DTR_CONTROL_ENABLE;
  settings.fRtsControl = RTS_CONTROL_ENABLE;
  if (!::SetCommState(handle, &settings)) return LastError();
  // Nothing ends before its time: a read has all that it asks for, and a write takes as long as the
  // line.
  COMMTIMEOUTS times{};
  if (!::SetCommTimeouts(handle, &times)) return LastError();
  return {};
}

COMSTAT State(boost::asio::serial_port& port) {
  COMSTAT state{};
  DWORD errors = 0;
  // Nothing is known of a port that is gone: the next read or write says so.
  if (!::ClearCommError(port.native_handle(), &errors, &state)) state = {};
  return state;
}

}  // namespace

error_code OpenSystemPort(boost::asio::serial_port& port, const std::string& name,
                          unsigned baud_rate) {
  const std::wstring path = Wide(WindowsPortPath(name));
  // Shared with nobody.
  const HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return LastError();
  error_code error = SetUp(handle, baud_rate);
  if (!error) port.assign(handle, error);
  if (error) ::CloseHandle(handle);
  return error;
}

void ReleaseSystemPort(boost::asio::serial_port& /*port*/) {}

void SetControlLine(boost::asio::serial_port& port, ControlLine line, bool raised) {
  if (line == ControlLine::kDtr) {
    ::EscapeCommFunction(port.native_handle(), raised ? SETDTR : CLRDTR);
  } else {
    ::EscapeCommFunction(port.native_handle(), raised ? SETRTS : CLRRTS);
  }
}

std::size_t ReadSize(boost::asio::serial_port& port, std::size_t room) {
  return std::clamp<std::size_t>(State(port).cbInQue, 1, room);
}

bool HasInput(boost::asio::serial_port& port) { return State(port).cbInQue > 0; }

std::size_t BytesOnTheirWay(boost::asio::serial_port& port, std::size_t in_progress) {
  return std::max<std::size_t>(in_progress, State(port).cbOutQue);
}

void DropOutput(boost::asio::serial_port& port) {
  ::PurgeComm(port.native_handle(), PURGE_TXABORT | PURGE_TXCLEAR);
}

}  // namespace Ports
