#pragma once

#include <string_view>

namespace brisklog::fuzz {

/// Tries one input. Each fuzzer defines it; coming back means that all went well.
void tryInput(std::string_view bytes);

/// Ends the program when a promise does not hold; the fuzzer keeps the input that led there.
void require(bool holds, std::string_view promise);

} // namespace brisklog::fuzz
