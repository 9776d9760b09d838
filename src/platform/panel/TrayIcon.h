#pragma once

#include "platform/panel/PanelIcon.h"

#include <QSystemTrayIcon>

namespace brisklog {

/// The icon in an XEmbed tray.
class TrayIcon final : public PanelIcon {
public:
    explicit TrayIcon(Content content);

    void setDescription(const QString& description) override;

private:
    void handleActivation(QSystemTrayIcon::ActivationReason reason) const;

    Content m_content;
    QSystemTrayIcon m_icon;
};

} // namespace brisklog
