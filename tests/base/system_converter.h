// What the system itself makes of a byte in a code page.
#pragma once

#include <optional>

/// A character's number, or nothing where the C library's converter (Windows: the system's) has
/// none for the byte.
std::optional<char16_t> SystemTextOf(int code_page, int value);
