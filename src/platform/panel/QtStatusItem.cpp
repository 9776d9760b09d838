#include "platform/panel/QtStatusItem.h"

#include <QCursor>
#include <QGuiApplication>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

constexpr TimeInterval settlingTime = 1;
/// The usual size of an icon in a panel.
constexpr int iconSize = 22;

bool isWayland() { return QGuiApplication::platformName().startsWith(u"wayland"_s); }

} // namespace

QtStatusItem::QtStatusItem(StatusIcons icons, RunLoop& runLoop)
    : m_icons(std::move(icons)), m_runLoop(runLoop) {}

void QtStatusItem::setDescription(const std::string& description) {
    m_description = QString::fromStdString(description);
    if (m_icon)
        m_icon->setToolTip(m_description);
}

void QtStatusItem::setAction(std::function<void()> action) { m_action = std::move(action); }

void QtStatusItem::addMenuEntry(const QString& caption, std::function<void()> action) {
    if (!m_menu.isEmpty())
        m_menu.addSeparator();
    QObject::connect(m_menu.addAction(caption), &QAction::triggered, &m_menu, std::move(action));
}

void QtStatusItem::show(StatusItemHostKind host, HostArrival arrival) {
    if (arrival == HostArrival::wasThere)
        makeIcon(host);
    else
        m_settling = m_runLoop.runAfter(settlingTime, [this, host] { makeIcon(host); });
}

void QtStatusItem::makeIcon(StatusItemHostKind host) {
    const bool panelColours = host == StatusItemHostKind::statusNotifier && !m_icons.named.isNull();
    m_icon = std::make_unique<QSystemTrayIcon>(panelColours ? m_icons.named : m_icons.bitmap);
    m_icon->setToolTip(m_description);
    m_icon->setContextMenu(&m_menu);
    QObject::connect(m_icon.get(), &QSystemTrayIcon::activated, &m_menu,
                     [this](QSystemTrayIcon::ActivationReason reason) { handleActivation(reason); });
    m_icon->show();
}

void QtStatusItem::handleActivation(QSystemTrayIcon::ActivationReason reason) {
    // A fast second click arrives as a double click and is a click like any other.
    if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::DoubleClick)
        return;
    m_lastClick = placeOfClick();
    if (m_action)
        m_action();
}

std::optional<ScreenRectangle> QtStatusItem::placeOfClick() const {
    if (isWayland())
        return std::nullopt;
    const QRect icon = m_icon->geometry();
    if (!icon.isEmpty())
        return ScreenRectangle{icon.x(), icon.y(), icon.width(), icon.height()};
    const QPoint pointer = QCursor::pos();
    return ScreenRectangle{pointer.x() - iconSize / 2, pointer.y() - iconSize / 2, iconSize, iconSize};
}

std::optional<ScreenRectangle> QtStatusItem::anchor() const { return m_lastClick; }

} // namespace brisklog
