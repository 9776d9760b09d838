#include "platform/panel/TrayIcon.h"

#include <QMenu>
#include <utility>

namespace brisklog {

TrayIcon::TrayIcon(Content content) : m_content(std::move(content)), m_icon(m_content.icon) {
    setDescription(m_content.description);
    m_icon.setContextMenu(&m_content.menu);
    QObject::connect(&m_icon, &QSystemTrayIcon::activated, &m_icon,
                     [this](QSystemTrayIcon::ActivationReason reason) { handleActivation(reason); });
    m_icon.show();
}

void TrayIcon::setDescription(const QString& description) { m_icon.setToolTip(description); }

void TrayIcon::handleActivation(QSystemTrayIcon::ActivationReason reason) const {
    // A fast second click arrives as a double click but counts as an ordinary click.
    if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::DoubleClick)
        return;
    const QRect icon = m_icon.geometry();
    m_content.clicked(ScreenRectangle{icon.x(), icon.y(), icon.width(), icon.height()});
}

} // namespace brisklog
