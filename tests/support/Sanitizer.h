#pragma once

namespace brisklog::test {

/// The address sanitizer keeps freed memory and makes everything several times slower, so figures of memory
/// and time say nothing about the program.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool underSanitizer = true;
#else
inline constexpr bool underSanitizer = false;
#endif

} // namespace brisklog::test
