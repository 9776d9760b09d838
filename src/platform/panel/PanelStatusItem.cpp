#include "platform/panel/PanelStatusItem.h"

#include "platform/panel/NotifierItem.h"
#include "platform/panel/TrayIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>

namespace brisklog {
namespace {

/// A panel that has just appeared is given a second; otherwise some show only a sliver of the icon.
constexpr TimeInterval settlingTime = 1;

QPixmap rendered(QSvgRenderer& renderer, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

/// In the sizes that panels use, at a scale of 2 as well.
QIcon drawnIcon(const QString& file) {
    QIcon icon;
    QSvgRenderer renderer(file);
    for (const int size : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(rendered(renderer, size));
    return icon;
}

} // namespace

PanelStatusItem::PanelStatusItem(QString picture, RunLoop& runLoop, WindowServer& windowServer)
    : m_picture(std::move(picture)), m_runLoop(runLoop), m_windowServer(windowServer),
      m_hosts(windowServer,
              [this](StatusItemHostKind host, HostArrival arrival) { handleHost(host, arrival); }) {}

void PanelStatusItem::setDescription(const std::string& description) {
    m_description = QString::fromStdString(description);
    if (m_icon)
        m_icon->setDescription(m_description);
}

void PanelStatusItem::setAction(std::function<void()> action) { m_action = std::move(action); }

void PanelStatusItem::addMenuEntry(const std::string& caption, std::function<void()> action) {
    if (!m_menu.isEmpty())
        m_menu.addSeparator();
    // Without icons, which a panel would have to draw.
    const auto* const entry = m_menu.addAction(QString::fromStdString(caption));
    QObject::connect(entry, &QAction::triggered, &m_menu, std::move(action));
}

/// An icon waiting for its panel to settle counts, because it is about to appear. One whose panel has gone
/// does not.
bool PanelStatusItem::isReachable() const { return (m_icon || m_settling) && m_hosts.hasHost(); }

void PanelStatusItem::handleHost(StatusItemHostKind host, HostArrival arrival) {
    if (arrival == HostArrival::alreadyThere)
        m_icon = makeIcon(host);
    else
        m_settling = m_runLoop.runAfter(settlingTime, [this, host] { m_icon = makeIcon(host); });
}

std::unique_ptr<PanelIcon> PanelStatusItem::makeIcon(StatusItemHostKind host) {
    PanelIcon::Content content{drawnIcon(m_picture), m_description, m_menu,
                               [this](const std::optional<ScreenRectangle>& place) { handleClick(place); }};
    if (host == StatusItemHostKind::statusNotifier)
        return std::make_unique<NotifierItem>(std::move(content), m_windowServer);
    return std::make_unique<TrayIcon>(std::move(content));
}

void PanelStatusItem::handleClick(const std::optional<ScreenRectangle>& place) {
    m_lastClick = place;
    if (m_action)
        m_action();
}

std::optional<ScreenRectangle> PanelStatusItem::anchor() const { return m_lastClick; }

} // namespace brisklog
