#pragma once

#include "platform/RunLoop.h"
#include "platform/StatusItem.h"
#include "platform/panel/PanelIcon.h"
#include "platform/panel/StatusItemHosts.h"

#include <QMenu>
#include <memory>
#include <optional>

namespace brisklog {

/// The icon in the panel, created once there is a panel to show it.
class PanelStatusItem final : public StatusItem {
public:
    /// The picture is an SVG file that is legible on any background.
    PanelStatusItem(QString picture, RunLoop& runLoop, WindowServer& windowServer);

    void setDescription(const std::string& description) override;
    void setAction(std::function<void()> action) override;
    void addMenuEntry(const std::string& caption, std::function<void()> action) override;
    [[nodiscard]] bool isReachable() const override;
    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override;

private:
    void handleHost(StatusItemHostKind host, HostArrival arrival);
    [[nodiscard]] std::unique_ptr<PanelIcon> makeIcon(StatusItemHostKind host);
    void handleClick(const std::optional<ScreenRectangle>& place);

    QString m_picture;
    RunLoop& m_runLoop;
    WindowServer& m_windowServer;
    QString m_description;
    std::function<void()> m_action;
    QMenu m_menu;
    std::unique_ptr<PanelIcon> m_icon;
    std::unique_ptr<Timer> m_settling;
    std::optional<ScreenRectangle> m_lastClick;
    StatusItemHosts m_hosts;
};

} // namespace brisklog
