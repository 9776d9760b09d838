#pragma once

#include <string_view>

namespace brisklog {

/// Ends the program at once with a failure code after one line on standard error: for what it cannot run
/// without.
[[noreturn]] void stopProgram(std::string_view reason);

} // namespace brisklog
