#pragma once

#include <string_view>

namespace brisklog {

/// Prints one line on standard error and ends the program at once with a failure code: for when something is
/// missing that it cannot run without.
[[noreturn]] void stopProgram(std::string_view reason);

} // namespace brisklog
