#include "platform/panel/QtStatusItem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

/// A panel that has just appeared is given a second; otherwise some show only a sliver of the icon.
constexpr TimeInterval settlingTime = 1;
/// The usual size of an icon in a panel.
constexpr int iconSize = 22;

bool isWayland() { return QGuiApplication::platformName().startsWith(u"wayland"_s); }

QPixmap rendered(QSvgRenderer& renderer, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

QIcon drawnIcon(const QString& file) {
    QIcon icon;
    QSvgRenderer renderer(file);
    for (const int size : {16, 22, 24, 32, 48})
        icon.addPixmap(rendered(renderer, size));
    return icon;
}

/// Asking the icon theme for an icon that is not installed would read the whole theme, which takes a third of
/// the start-up time.
QIcon themedIcon(const QString& name) {
    const QString file = u"icons/hicolor/symbolic/apps/"_s + name + u".svg"_s;
    const bool isInstalled = !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
    return isInstalled ? QIcon::fromTheme(name) : QIcon();
}

} // namespace

QtStatusItem::QtStatusItem(Picture picture, RunLoop& runLoop, WindowServer& windowServer)
    : m_picture(std::move(picture)), m_runLoop(runLoop),
      m_hosts(windowServer,
              [this](StatusItemHostKind host, HostArrival arrival) { handleHost(host, arrival); }) {}

void QtStatusItem::setDescription(const std::string& description) {
    m_description = QString::fromStdString(description);
    if (m_icon)
        m_icon->setToolTip(m_description);
}

void QtStatusItem::setAction(std::function<void()> action) { m_action = std::move(action); }

void QtStatusItem::addMenuEntry(const std::string& caption, std::function<void()> action) {
    if (!m_menu.isEmpty())
        m_menu.addSeparator();
    // Without icons, which a panel would have to draw.
    const auto* const entry = m_menu.addAction(QString::fromStdString(caption));
    QObject::connect(entry, &QAction::triggered, &m_menu, std::move(action));
}

/// An icon waiting for its panel to settle counts, because it is about to appear. One whose panel has gone
/// does not.
bool QtStatusItem::isReachable() const { return (m_icon || m_settling) && m_hosts.hasHost(); }

void QtStatusItem::handleHost(StatusItemHostKind host, HostArrival arrival) {
    if (arrival == HostArrival::alreadyThere)
        makeIcon(host);
    else
        m_settling = m_runLoop.runAfter(settlingTime, [this, host] { makeIcon(host); });
}

void QtStatusItem::makeIcon(StatusItemHostKind host) {
    QIcon icon;
    if (host == StatusItemHostKind::statusNotifier)
        icon = themedIcon(m_picture.themeName);
    m_icon = std::make_unique<QSystemTrayIcon>(icon.isNull() ? drawnIcon(m_picture.file) : icon);
    m_icon->setToolTip(m_description);
    m_icon->setContextMenu(&m_menu);
    QObject::connect(m_icon.get(), &QSystemTrayIcon::activated, &m_menu,
                     [this](QSystemTrayIcon::ActivationReason reason) { handleActivation(reason); });
    m_icon->show();
}

void QtStatusItem::handleActivation(QSystemTrayIcon::ActivationReason reason) {
    // A fast second click arrives as a double click but counts as an ordinary click.
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
