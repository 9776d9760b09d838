#pragma once

#include "platform/FrontmostApplication.h"
#include "platform/frontmost/WindowIdentity.h"

namespace brisklog {

/// What one look at a desktop shows.
struct InFront {
    enum class Kind {
        unknown, ///< the desktop has not told yet, or does not answer at the moment
        nothing, ///< no window has the focus
        desktop, ///< the desktop's own window, the ground with its icons
        window,  ///< a program's window
    };

    Kind kind = Kind::unknown;
    /// Of a program's window only.
    WindowIdentity window{};

    bool operator==(const InFront&) const = default;
};

/// Sees which window a desktop has in front. There is one implementation per way of asking a desktop; it says
/// what it sees, and what that counts as is decided for all of them elsewhere. It announces only changes of
/// its availability.
class FrontmostWindow : public ObservableObject {
public:
    using Availability = FrontmostApplication::Availability;

    virtual ~FrontmostWindow() = default;

    /// These three have the contract of FrontmostApplication.
    [[nodiscard]] virtual Availability availability() const = 0;
    virtual void beginWatching() = 0;
    virtual void endWatching() = 0;

    /// What is in front now, without waiting; valid until the next call. Unknown when not watching.
    [[nodiscard]] virtual const InFront& inFront() = 0;

    /// The uppermost window of the other programs when this program's own was in front at the beginning of
    /// the watching; unknown where the desktop does not tell.
    [[nodiscard]] virtual InFront behind(const OwnWindows& /*own*/) { return {}; }

    /// The icon that the window in front brings along, as a PNG image; absent when it has none.
    [[nodiscard]] virtual std::optional<std::string> windowIcon() { return std::nullopt; }
};

} // namespace brisklog
