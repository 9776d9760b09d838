#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/FrontmostWindow.h"
#include "platform/frontmost/UserPresence.h"

#include <memory>

namespace brisklog {

/// The rules by which what a desktop shows becomes the application in front, the same on every desktop:
/// - This program's own windows never are; the application before them is.
/// - While the screen is locked or the machine sleeps, that is in front, whatever the desktop shows.
/// - A second without a window, or the desktop's own window, is the bare desktop; less is a gap between two
///   windows, and so is one that has no name yet.
class DesktopFrontmostApplication final : public FrontmostApplication {
public:
    DesktopFrontmostApplication(std::unique_ptr<FrontmostWindow> window,
                                std::unique_ptr<UserPresence> presence, OwnWindows own);

    [[nodiscard]] Availability availability() const override;

    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] std::optional<DesktopApplication> current() override;
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override;

private:
    [[nodiscard]] std::optional<DesktopApplication> answer(const InFront& seen);
    [[nodiscard]] std::optional<DesktopApplication> answerBefore();
    [[nodiscard]] std::optional<DesktopApplication> answerFor(const WindowIdentity& window);
    [[nodiscard]] std::optional<DesktopApplication> answerInGap(const DesktopApplication& afterIt);
    [[nodiscard]] std::optional<DesktopApplication> answerAtOnce(const DesktopApplication& application);
    [[nodiscard]] const DesktopApplication& describe(const WindowIdentity& window);

    std::unique_ptr<FrontmostWindow> m_window;
    std::unique_ptr<UserPresence> m_presence;
    OwnWindows m_own;
    ApplicationCatalogue m_catalogue;
    /// The window last described, and its application: it is looked up only once.
    std::optional<WindowIdentity> m_described;
    DesktopApplication m_application;
    /// The last answer.
    std::optional<DesktopApplication> m_last;
    /// What the gap is taken for if it lasts; absent between gaps.
    std::optional<DesktopApplication> m_gap;
    /// Whether the desktop told what is in front when the user was last here. A locked one may not.
    bool m_wasAvailable = false;
    Subscription m_subscription;
};

} // namespace brisklog
