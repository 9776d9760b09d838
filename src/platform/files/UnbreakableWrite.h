#pragma once

#include <string_view>

namespace brisklog {

/// Writes the bytes from the file's beginning and cuts it off behind them; 0, or the error's number. Should
/// this process be killed meanwhile, the work is done all the same: the file never ends up half new.
[[nodiscard]] int writeUnbreakably(int file, std::string_view bytes);

} // namespace brisklog
