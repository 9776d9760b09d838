#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace brisklog {

/// Tracks which of the windows reported by a compositor is frontmost. What it reports about a window takes
/// effect at the next `apply`. Two windows may be active for a moment: the one activated last is frontmost.
class ToplevelStates {
public:
    using Window = std::uint64_t;

    /// A window not mentioned before is added, inactive and without an application id until the next `apply`.
    void setApplicationId(Window window, std::string id) {
        m_toplevels[window].next.applicationId = std::move(id);
    }

    void setActive(Window window, bool isActive) { m_toplevels[window].next.isActive = isActive; }

    void apply(Window window);

    /// The window has gone; its state is dropped.
    void close(Window window) { m_toplevels.erase(window); }

    void closeAll() { m_toplevels.clear(); }

    /// The application id, possibly empty, of the frontmost window; null when there is none.
    [[nodiscard]] const std::string* inFront() const;

private:
    struct State {
        std::string applicationId;
        bool isActive = false;
    };

    struct Toplevel {
        State next;
        State applied;
        /// The number of the activation that made it active.
        std::uint64_t activation = 0;
    };

    std::map<Window, Toplevel> m_toplevels;
    std::uint64_t m_activations = 0;
};

} // namespace brisklog
