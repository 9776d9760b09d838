#pragma once

#include "foundation/Observable.h"

#include <optional>
#include <string>

namespace brisklog {

/// An application as the desktop knows it.
struct DesktopApplication {
    /// Its name for people, in their language; absent when the desktop gives none.
    std::optional<std::string> localizedName;
    /// What tells it from all others and is the same at every start: the name of its desktop entry without
    /// the ending ("org.mozilla.firefox"), else its windows' class; absent when the desktop gives neither.
    std::optional<std::string> bundleIdentifier;

    bool operator==(const DesktopApplication&) const = default;
};

/// The application whose window has the focus. One implementation per way of asking; which one serves a
/// desktop is found out by what answers there. It announces changes of its availability, and only these.
class FrontmostApplication : public ObservableObject {
public:
    enum class Availability {
        beingFoundOut, ///< the desktop has not answered yet; an announcement follows
        available,
        unavailable, ///< this desktop tells ordinary programs nothing
    };

    virtual ~FrontmostApplication() = default;

    /// Whether the desktop tells at all, known also while nobody watches. What was available may become
    /// unavailable (the compositor ended) and the other way round.
    [[nodiscard]] virtual Availability availability() const = 0;

    /// From now on `current()` is asked about once a second; an implementation that is told of changes begins
    /// to listen. Watching already, nothing happens.
    virtual void beginWatching() = 0;

    /// `current()` is not asked until further notice; no more is listened to, and nothing is left running on
    /// the desktop. Not watching, nothing happens.
    virtual void endWatching() = 0;

    /// The application in front, at once and without waiting for anybody: who is told of changes answers what
    /// was told last. Absent when no application's window has the focus (the bare desktop, a locked screen),
    /// when it cannot be told just now, and when nobody watches. A focus lost for less than a second between
    /// two windows is no absence.
    [[nodiscard]] virtual std::optional<DesktopApplication> current() = 0;

    /// The icon of an application that was in front a moment ago, as a PNG image of 32 × 32 pixels where the
    /// desktop has that size; asked once when the application comes to the front. Absent when there is none
    /// or it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> iconPng(const DesktopApplication& application) = 0;
};

} // namespace brisklog
