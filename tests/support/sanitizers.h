// Which sanitizer a test was compiled with: what it holds and how long it takes is not the
// program's.
#pragma once

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BRIVON_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define BRIVON_ADDRESS_SANITIZER
#endif

#ifdef BRIVON_ADDRESS_SANITIZER
inline constexpr bool kAddressSanitizer = true;
#else
inline constexpr bool kAddressSanitizer = false;
#endif
