#include "Fuzzer.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace brisklog::fuzz {

void require(bool holds, std::string_view promise) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken promise: %.*s\n", static_cast<int>(promise.size()), promise.data());
    std::abort();
}

} // namespace brisklog::fuzz

// The fuzzing engine calls it by this name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    brisklog::fuzz::tryInput({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
