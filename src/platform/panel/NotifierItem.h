#pragma once

#include "platform/panel/BusObject.h"
#include "platform/panel/NotifierMenu.h"
#include "platform/panel/PanelIcon.h"

#include <QDBusServiceWatcher>

namespace brisklog {

class WindowServer;

/// The icon as a StatusNotifier host reads it over the bus. Not the toolkit's own, which drops the place of
/// a click and the activation token. Panels show it until the process has left the bus.
class NotifierItem final : public PanelIcon, private BusObject {
public:
    NotifierItem(Content content, WindowServer& windowServer,
                 QDBusConnection bus = QDBusConnection::sessionBus());

    void setDescription(const QString& description) override;

protected:
    [[nodiscard]] QVariantMap properties() const override;
    [[nodiscard]] std::optional<QVariantList> handleCall(const QString& method,
                                                         const QVariantList& arguments) override;

private:
    void registerAtWatcher();
    void takeToken(const QString& token) const;
    void handleClick(const QPoint& reported) const;

    Content m_content;
    WindowServer& m_windowServer;
    NotifierMenu m_menu;
    /// A panel that starts anew knows of no icons.
    QDBusServiceWatcher m_watcherStarts;
};

} // namespace brisklog
