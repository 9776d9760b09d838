#pragma once

#include <cstdint>
#include <string>

namespace brisklog {

/// The name of the program file that a process runs, or of the script if that is an interpreter; empty when
/// there is no such process or access to it is denied.
[[nodiscard]] std::string programName(std::uint32_t process);

} // namespace brisklog
