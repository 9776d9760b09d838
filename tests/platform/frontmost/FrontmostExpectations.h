#pragma once

#include "FakeUserPresence.h"
#include "platform/frontmost/DesktopFrontmostApplication.h"

#include <memory>
#include <optional>
#include <string>

namespace brisklog::test {

[[nodiscard]] DesktopApplication application(const std::string& name, const std::string& identifier);

/// An application without a desktop entry: its identifier is its name.
[[nodiscard]] DesktopApplication application(const std::string& name);

inline const DesktopApplication bareDesktop{.localizedName = "Schreibtisch", .bundleIdentifier = "desktop"};

inline const DesktopApplication lockedScreen{.localizedName = "Bildschirmsperre", .bundleIdentifier = "lock"};

/// Windows that a test wants taken for this program's own.
inline const OwnWindows ownWindows{.process = 1, .names = {"example.brisklog.Brisklog", "brisklog"}};

/// What is in front by this way of seeing windows.
template <class Window, class... Arguments>
[[nodiscard]] std::unique_ptr<DesktopFrontmostApplication> applicationsBy(Arguments&&... arguments) {
    return std::make_unique<DesktopFrontmostApplication>(
        std::make_unique<Window>(std::forward<Arguments>(arguments)...), std::make_unique<FakeUserPresence>(),
        ownWindows);
}

/// Whether this is in front eventually, and still is when asked a second time: programs take their time to
/// open windows, and a gap is bridged once.
[[nodiscard]] bool becomesFrontmost(FrontmostApplication& frontmost,
                                    const std::optional<DesktopApplication>& expected);

} // namespace brisklog::test
