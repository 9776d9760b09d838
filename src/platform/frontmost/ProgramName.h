#pragma once

#include <cstdint>
#include <string>

namespace brisklog {

/// The name of the program file a process runs, or of the script where an interpreter runs one; empty when
/// there is no such process or it may not be asked.
[[nodiscard]] std::string programName(std::uint32_t process);

} // namespace brisklog
