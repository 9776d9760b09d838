#pragma once

#include "platform/frontmost/ForeignToplevels.h"
#include "platform/frontmost/FrontmostWindow.h"
#include "platform/frontmost/WaylandConnection.h"

#include <QObject>

namespace brisklog {

/// The window in front under compositors that report all windows to every program
/// ("wlr-foreign-toplevel-management"): sway, Hyprland, labwc and others. They report by themselves, so
/// asking costs nothing; while not watching, only the compositor's presence is observed.
class WlrootsFrontmostWindow final : public FrontmostWindow {
public:
    WlrootsFrontmostWindow();

    [[nodiscard]] Availability availability() const override;
    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] const InFront& inFront() override;

private:
    void notePresence();
    void noteFinished();
    void announceLater();

    WaylandGlobal m_global;
    /// The compositor has announced that it will report nothing more.
    bool m_hasFinished = false;
    /// Present only while watching.
    std::optional<ForeignToplevels> m_toplevels;
    InFront m_seen;
    QObject m_context;
};

} // namespace brisklog
