// Windows has no limit of a file's size, so every module's way to WriteFile leads through here.
// clang-format off
#include <qt_windows.h>
#include <psapi.h>
// clang-format on
#include "support/full_disk.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

using WriteFunction = decltype(&WriteFile);

LONGLONG room_of_files = 0;
WriteFunction real_write = nullptr;

WriteFunction WriteOf(const wchar_t* library) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(library), "WriteFile");
  WriteFunction function = nullptr;
  std::memcpy(&function, &found, sizeof function);
  return function;
}

BOOL WINAPI WriteWhatFits(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written,
                          LPOVERLAPPED overlapped) {
  LARGE_INTEGER at{};
  const bool is_file = GetFileType(file) == FILE_TYPE_DISK && overlapped == nullptr &&
                       SetFilePointerEx(file, {}, &at, FILE_CURRENT) != 0;
  if (!is_file) return real_write(file, bytes, size, written, overlapped);
  if (at.QuadPart + size <= room_of_files) {
    return real_write(file, bytes, size, written, overlapped);
  }
  // This system writes all of it or nothing.
  if (written != nullptr) *written = 0;
  SetLastError(ERROR_FILE_TOO_LARGE);
  return FALSE;
}

void Lead(IMAGE_THUNK_DATA& entry, WriteFunction target) {
  DWORD protection = 0;
  VirtualProtect(&entry, sizeof entry, PAGE_READWRITE, &protection);
  entry.u1.Function = reinterpret_cast<ULONGLONG>(target);
  VirtualProtect(&entry, sizeof entry, protection, &protection);
}

/// In the module at `base`, lets calls of `from` go to `to`.
void Redirect(const BYTE* base, WriteFunction from, WriteFunction to) {
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (imports.Size == 0) return;
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    auto* entry = const_cast<IMAGE_THUNK_DATA*>(
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->FirstThunk));
    for (; entry->u1.Function != 0; ++entry) {
      if (entry->u1.Function == reinterpret_cast<ULONGLONG>(from)) Lead(*entry, to);
    }
  }
}

void RedirectAll(WriteFunction from, WriteFunction to) {
  std::array<HMODULE, 1024> modules{};
  DWORD size = 0;
  EnumProcessModules(GetCurrentProcess(), modules.data(), sizeof modules, &size);
  const std::size_t count = std::min(modules.size(), size / sizeof(HMODULE));
  const HMODULE system = GetModuleHandleW(L"kernel32.dll");  // whose own way stays as it is
  for (std::size_t at = 0; at < count; ++at) {
    if (modules[at] == system) continue;
    Redirect(reinterpret_cast<const BYTE*>(modules[at]), from, to);
  }
}

}  // namespace

FullDisk::FullDisk(qint64 room) {
  room_of_files = room;
  // A module's way leads to the one or straight to the other behind it.
  real_write = WriteOf(L"kernel32.dll");
  RedirectAll(real_write, &WriteWhatFits);
  RedirectAll(WriteOf(L"kernelbase.dll"), &WriteWhatFits);
}

FullDisk::~FullDisk() { RedirectAll(&WriteWhatFits, real_write); }
