#pragma once

#include "platform/RunLoop.h"
#include "platform/StatusItem.h"
#include "platform/panel/StatusItemHosts.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>
#include <optional>

namespace brisklog {

/// The icon in the panel, created once there is a panel to show it.
class QtStatusItem final : public StatusItem {
public:
    /// The same picture for both kinds of panel.
    struct Picture {
        /// The icon theme name by which a panel finds the icon and recolours it.
        QString themeName;
        /// An SVG file that is legible on any background.
        QString file;
    };

    QtStatusItem(Picture picture, RunLoop& runLoop, WindowServer& windowServer);

    void setDescription(const std::string& description) override;
    void setAction(std::function<void()> action) override;
    void addMenuEntry(const std::string& caption, std::function<void()> action) override;
    [[nodiscard]] bool isReachable() const override;
    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override;

private:
    void handleHost(StatusItemHostKind host, HostArrival arrival);
    void makeIcon(StatusItemHostKind host);
    void handleActivation(QSystemTrayIcon::ActivationReason reason);
    [[nodiscard]] std::optional<ScreenRectangle> placeOfClick() const;

    Picture m_picture;
    RunLoop& m_runLoop;
    QString m_description;
    std::function<void()> m_action;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::unique_ptr<Timer> m_settling;
    std::optional<ScreenRectangle> m_lastClick;
    StatusItemHosts m_hosts;
};

} // namespace brisklog
