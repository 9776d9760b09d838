#pragma once

#include "platform/RunLoop.h"
#include "platform/StatusItem.h"
#include "platform/panel/StatusItemHosts.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>
#include <optional>

namespace brisklog {

/// How the status icon is drawn for each kind of panel.
struct StatusIcons {
    /// Has a name by which the panel finds and colours it.
    QIcon named;
    /// Legible on every ground.
    QIcon bitmap;
};

/// The icon in the panel, made once there is a panel to show it.
class QtStatusItem final : public StatusItem {
public:
    QtStatusItem(StatusIcons icons, RunLoop& runLoop);

    void setDescription(const std::string& description) override;
    void setAction(std::function<void()> action) override;
    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override;

    /// What a right click offers, in this order; no icons that a panel would have to draw.
    void addMenuEntry(const QString& caption, std::function<void()> action);

    /// Makes the icon for the panel that was found; one that has only just come gets a second to settle,
    /// without which some show a sliver.
    void show(StatusItemHostKind host, HostArrival arrival);

    /// Whether there is an icon, or will be as soon as its panel has settled.
    [[nodiscard]] bool isShown() const { return m_icon || m_settling; }

private:
    void makeIcon(StatusItemHostKind host);
    void handleActivation(QSystemTrayIcon::ActivationReason reason);
    [[nodiscard]] std::optional<ScreenRectangle> placeOfClick() const;

    StatusIcons m_icons;
    RunLoop& m_runLoop;
    QString m_description;
    std::function<void()> m_action;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::unique_ptr<Timer> m_settling;
    std::optional<ScreenRectangle> m_lastClick;
};

} // namespace brisklog
