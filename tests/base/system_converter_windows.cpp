#include "base/system_converter.h"

#include <qt_windows.h>

std::optional<char16_t> SystemTextOf(int code_page, int value) {
  // Windows has given this one a letter since; the other systems' tables, as ours, have none.
  if (code_page == 1255 && value == 0xCA) return std::nullopt;
  const char character = static_cast<char>(value);
  wchar_t text = 0;
  const int size = MultiByteToWideChar(static_cast<UINT>(code_page), MB_ERR_INVALID_CHARS,
                                       &character, 1, &text, 1);
  if (size != 1) return std::nullopt;
  return static_cast<char16_t>(text);
}
