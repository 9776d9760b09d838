#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/ForeignToplevels.h"

#include <QObject>

namespace brisklog {

/// The frontmost application under compositors that tell every program about the windows of all
/// ("wlr-foreign-toplevel-management"): sway, Hyprland, labwc and others. They tell by themselves, so asking
/// costs nothing; while nobody watches, nothing is listened to but whether the compositor lives.
class WlrootsFrontmostApplication final : public FrontmostApplication {
public:
    WlrootsFrontmostApplication();

    [[nodiscard]] Availability availability() const override;
    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] std::optional<DesktopApplication> current() override;
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override;

private:
    void noteFinished();
    void announceLater();

    WaylandGlobal m_global;
    /// The compositor has said that it will tell nothing more.
    bool m_hasFinished = false;
    /// While watching.
    std::optional<ForeignToplevels> m_toplevels;
    DescribedWindow m_described;
    QObject m_context;
};

} // namespace brisklog
