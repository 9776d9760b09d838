#pragma once

#include <string_view>

namespace brisklog::fuzz {

/// Tries one input. Each fuzzer defines its own; returning means that all went well.
void tryInput(std::string_view bytes);

/// Aborts when a promise does not hold; the fuzzing engine then keeps the input.
void require(bool holds, std::string_view promise);

} // namespace brisklog::fuzz
