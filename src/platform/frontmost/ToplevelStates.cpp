#include "platform/frontmost/ToplevelStates.h"

namespace brisklog {

void ToplevelStates::apply(Window window) {
    Toplevel& toplevel = m_toplevels[window];
    if (toplevel.next.isActive && !toplevel.applied.isActive)
        toplevel.activation = ++m_activations;
    toplevel.applied = toplevel.next;
}

const std::string* ToplevelStates::inFront() const {
    const Toplevel* latest = nullptr;
    for (const auto& [window, toplevel] : m_toplevels)
        if (toplevel.applied.isActive && (latest == nullptr || toplevel.activation > latest->activation))
            latest = &toplevel;
    return latest != nullptr ? &latest->applied.applicationId : nullptr;
}

} // namespace brisklog
