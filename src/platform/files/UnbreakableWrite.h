#pragma once

#include <string_view>

namespace brisklog {

/// Writes the bytes to the beginning of the file and truncates it after them; returns 0 or the error number.
/// The write completes even if this process is killed meanwhile: the file never ends up half new.
[[nodiscard]] int writeUnbreakably(int file, std::string_view bytes);

} // namespace brisklog
