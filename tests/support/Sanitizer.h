#pragma once

namespace brisklog::test {

/// Under the address sanitizer freed memory is kept and everything takes several times as long, so that
/// figures of memory and time say nothing about the program.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool underSanitizer = true;
#else
inline constexpr bool underSanitizer = false;
#endif

} // namespace brisklog::test
