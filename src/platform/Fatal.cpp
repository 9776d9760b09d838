#include "platform/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace brisklog {

void stopProgram(std::string_view reason) {
    std::fflush(stdout);
    std::fprintf(stderr, "brisklog: %.*s\n", static_cast<int>(reason.size()), reason.data());
    std::_Exit(EXIT_FAILURE);
}

} // namespace brisklog
