#include "platform/panel/NotifierItem.h"

#include "platform/WindowServer.h"
#include "platform/panel/ClickPlace.h"

#include <QCursor>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace brisklog {

using namespace Qt::StringLiterals;

namespace {

const QString itemMembers = uR"xml(
<property name="Category" type="s" access="read"/><property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/><property name="Status" type="s" access="read"/>
<property name="WindowId" type="i" access="read"/><property name="IconName" type="s" access="read"/>
<property name="IconPixmap" type="a(iiay)" access="read"/><property name="IconAccessibleDesc" type="s" access="read"/>
<property name="ToolTip" type="(sa(iiay)ss)" access="read"/><property name="ItemIsMenu" type="b" access="read"/>
<property name="Menu" type="o" access="read"/>
<method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="SecondaryActivate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="ContextMenu"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="Scroll"><arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/></method>
<method name="ProvideXdgActivationToken"><arg name="token" type="s" direction="in"/></method>
<signal name="NewTitle"/><signal name="NewIcon"/><signal name="NewToolTip"/>
<signal name="NewStatus"><arg name="status" type="s"/></signal>)xml"_s;

const QString panelService = u"org.kde.StatusNotifierWatcher"_s;

/// Absent where the toolkit's is that of long ago.
std::optional<QPoint> knownPointer(const WindowServer& server) {
    return server.knowsPointer() ? std::optional(QCursor::pos()) : std::nullopt;
}

QList<ScaledScreen> scaledScreens() {
    QList<ScaledScreen> screens;
    for (const QScreen* const screen : QGuiApplication::screens())
        screens.append({screen->geometry(), screen->devicePixelRatio()});
    return screens;
}

} // namespace

NotifierItem::NotifierItem(Content content, WindowServer& windowServer, QDBusConnection bus)
    : BusObject(bus, {u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, itemMembers}),
      m_content(std::move(content)), m_windowServer(windowServer), m_menu(bus, m_content.menu),
      m_watcherStarts(panelService, bus, QDBusServiceWatcher::WatchForRegistration) {
    registerBusTypes();
    connect(&m_watcherStarts, &QDBusServiceWatcher::serviceRegistered, this, [this] { registerAtWatcher(); });
    registerAtWatcher();
}

void NotifierItem::registerAtWatcher() {
    auto call = QDBusMessage::createMethodCall(panelService, u"/StatusNotifierWatcher"_s, panelService,
                                               u"RegisterStatusNotifierItem"_s);
    call.setArguments({bus().baseService()});
    call.setAutoStartService(false);
    bus().send(call);
}

void NotifierItem::setDescription(const QString& description) {
    m_content.description = description;
    emitSignal(u"NewToolTip"_s);
}

QVariantMap NotifierItem::properties() const {
    return {{u"Category"_s, u"ApplicationStatus"_s},
            {u"Id"_s, u"brisklog"_s},
            {u"Title"_s, u"Brisklog"_s},
            {u"Status"_s, u"Active"_s},
            {u"WindowId"_s, 0},
            {u"IconName"_s, QString()},
            {u"IconPixmap"_s, QVariant::fromValue(busPictures(m_content.icon))},
            {u"IconAccessibleDesc"_s, m_content.description},
            {u"ToolTip"_s, QVariant::fromValue(BusToolTip{{}, {}, m_content.description, {}})},
            {u"ItemIsMenu"_s, false},
            {u"Menu"_s, QVariant::fromValue(QDBusObjectPath(NotifierMenu::path))}};
}

std::optional<QVariantList> NotifierItem::handleCall(const QString& method, const QVariantList& arguments) {
    const QPoint place(arguments.value(0).toInt(), arguments.value(1).toInt());
    // Some panels keep the left button for the menu: there, the middle one takes a single click to open.
    if (method == u"Activate"_s || method == u"SecondaryActivate"_s)
        QMetaObject::invokeMethod(
            this, [this, place] { handleClick(place); }, Qt::QueuedConnection);
    else if (method == u"ProvideXdgActivationToken"_s)
        takeToken(arguments.value(0).toString());
    else if (method != u"ContextMenu"_s && method != u"Scroll"_s)
        return std::nullopt;
    return QVariantList();
}

/// A native window hands it over when it next asks for the focus; the toolkit reads it from there.
void NotifierItem::takeToken(const QString& token) const {
    if (QGuiApplication::platformName().startsWith(u"wayland"_s))
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    else
        m_windowServer.completeActivation(token.toStdString());
}

void NotifierItem::handleClick(const QPoint& reported) const {
    const auto place = placeOfClick(reported, knownPointer(m_windowServer), scaledScreens());
    m_content.clicked(place ? std::optional(iconAround(*place)) : std::nullopt);
}

} // namespace brisklog
