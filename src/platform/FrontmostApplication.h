#pragma once

#include "foundation/Observable.h"

#include <optional>
#include <string>

namespace brisklog {

/// An application as the desktop knows it.
struct DesktopApplication {
    /// Its display name in the user's language; absent when the desktop provides none.
    std::optional<std::string> localizedName;
    /// Identifies it uniquely and is the same on every start: the name of its desktop entry without the
    /// extension ("org.mozilla.firefox"), otherwise the class of its windows; absent when the desktop
    /// provides neither.
    std::optional<std::string> bundleIdentifier;

    bool operator==(const DesktopApplication&) const = default;
};

/// The application whose window has the focus. There is one implementation per way of asking; the desktop's
/// is the one that gets an answer there. It announces only changes of its availability.
class FrontmostApplication : public ObservableObject {
public:
    enum class Availability {
        notYetKnown, ///< the desktop has not answered yet; an announcement follows
        available,
        switchedOff, ///< it would, but the user has not switched on the extension that does
        unavailable, ///< this desktop does not tell ordinary programs
    };

    virtual ~FrontmostApplication() = default;

    /// Whether the desktop reports it at all, known even while not watching. It may become unavailable (if
    /// the compositor ends) and available again.
    [[nodiscard]] virtual Availability availability() const = 0;

    /// Whether it reports, or may still turn out to.
    [[nodiscard]] bool mayReport() const {
        return availability() == Availability::available || availability() == Availability::notYetKnown;
    }

    /// From now on `current()` is called about once a second; an implementation that is notified of changes
    /// begins to listen. Does nothing if already watching.
    virtual void beginWatching() = 0;

    /// From now on `current()` is not called; listening ends, and nothing is left running on the desktop.
    /// Does nothing if not watching.
    virtual void endWatching() = 0;

    /// The frontmost application, without waiting: an implementation that is notified of changes returns the
    /// last one. The bare desktop, a locked screen and a sleeping machine are applications of their own
    /// ("desktop", "lock"); this program itself never is one. Absent when it is unknown at the moment, and
    /// when not watching. Losing the focus between two windows for less than a second is no change.
    [[nodiscard]] virtual std::optional<DesktopApplication> current() = 0;

    /// The icon of an application that was frontmost a moment ago, as a PNG image of 32 × 32 pixels if the
    /// desktop has that size; called once when the application comes to the front. Absent when there is none
    /// or it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> iconPng(const DesktopApplication& application) = 0;
};

} // namespace brisklog
