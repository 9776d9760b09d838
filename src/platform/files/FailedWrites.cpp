#include "platform/files/FailedWrites.h"

#include <csignal>

namespace brisklog {

void letFailedWritesReturn() {
    // A handler that does nothing, because "ignored" would be handed on to the programs we start.
    struct sigaction nothing {};

    nothing.sa_handler = [](int /*signal*/) {};
    nothing.sa_flags = SA_RESTART;
    sigaction(SIGXFSZ, &nothing, nullptr);
    sigaction(SIGPIPE, &nothing, nullptr);
}

} // namespace brisklog
