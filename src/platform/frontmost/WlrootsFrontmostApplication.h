#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/ForeignToplevels.h"
#include "platform/frontmost/WaylandConnection.h"

#include <QObject>

namespace brisklog {

/// The frontmost application under compositors that report all windows to every program
/// ("wlr-foreign-toplevel-management"): sway, Hyprland, labwc and others. They report by themselves, so
/// asking costs nothing; while not watching, only the compositor's presence is observed.
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
    /// The compositor has announced that it will report nothing more.
    bool m_hasFinished = false;
    /// Present only while watching.
    std::optional<ForeignToplevels> m_toplevels;
    DescribedWindow m_described;
    QObject m_context;
};

} // namespace brisklog
