#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace brisklog {

/// Which of the windows a compositor tells about is in front. What it tells of a window counts from the next
/// `apply` on. Two windows may be active for an instant: the one activated last is in front.
class ToplevelStates {
public:
    using Window = std::uint64_t;

    /// A window that was never spoken of before begins with this, inactive and without application id.
    void setApplicationId(Window window, std::string id) {
        m_toplevels[window].next.applicationId = std::move(id);
    }

    void setActive(Window window, bool isActive) { m_toplevels[window].next.isActive = isActive; }

    void apply(Window window);

    /// The window has gone, whatever it was told to be.
    void close(Window window) { m_toplevels.erase(window); }

    void closeAll() { m_toplevels.clear(); }

    /// The application id, possibly empty, of the window in front; null when no window is.
    [[nodiscard]] const std::string* inFront() const;

private:
    struct State {
        std::string applicationId;
        bool isActive = false;
    };

    struct Toplevel {
        State next;
        State applied;
        /// Which activation it was that made it active.
        std::uint64_t activation = 0;
    };

    std::map<Window, Toplevel> m_toplevels;
    std::uint64_t m_activations = 0;
};

} // namespace brisklog
