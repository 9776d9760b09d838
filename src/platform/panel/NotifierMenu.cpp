#include "platform/panel/NotifierMenu.h"

#include <QAction>
#include <QDBusVariant>
#include <QMenu>

namespace brisklog {

using namespace Qt::StringLiterals;

namespace {

const QString menuMembers = uR"xml(
<property name="Version" type="u" access="read"/><property name="Status" type="s" access="read"/>
<property name="TextDirection" type="s" access="read"/><property name="IconThemePath" type="as" access="read"/>
<method name="GetLayout"><arg name="parentId" type="i" direction="in"/><arg name="recursionDepth" type="i" direction="in"/>
<arg name="propertyNames" type="as" direction="in"/><arg name="revision" type="u" direction="out"/>
<arg name="layout" type="(ia{sv}av)" direction="out"/></method>
<method name="GetGroupProperties"><arg name="ids" type="ai" direction="in"/><arg name="propertyNames" type="as" direction="in"/>
<arg name="properties" type="a(ia{sv})" direction="out"/></method>
<method name="GetProperty"><arg name="id" type="i" direction="in"/><arg name="name" type="s" direction="in"/>
<arg name="value" type="v" direction="out"/></method>
<method name="Event"><arg name="id" type="i" direction="in"/><arg name="eventId" type="s" direction="in"/>
<arg name="data" type="v" direction="in"/><arg name="timestamp" type="u" direction="in"/></method>
<method name="EventGroup"><arg name="events" type="a(isvu)" direction="in"/><arg name="idErrors" type="ai" direction="out"/></method>
<method name="AboutToShow"><arg name="id" type="i" direction="in"/><arg name="needUpdate" type="b" direction="out"/></method>
<method name="AboutToShowGroup"><arg name="ids" type="ai" direction="in"/><arg name="updatesNeeded" type="ai" direction="out"/>
<arg name="idErrors" type="ai" direction="out"/></method>
<signal name="ItemsPropertiesUpdated"><arg type="a(ia{sv})"/><arg type="a(ias)"/></signal>
<signal name="LayoutUpdated"><arg type="u"/><arg type="i"/></signal>
<signal name="ItemActivationRequested"><arg type="i"/><arg type="u"/></signal>)xml"_s;

constexpr int wholeMenu = 0;
/// It never changes.
constexpr uint revision = 1;

QVariantMap describe(const QAction& action) {
    if (action.isSeparator())
        return {{u"type"_s, u"separator"_s}};
    return {{u"label"_s, action.text()}, {u"enabled"_s, true}, {u"visible"_s, true}};
}

QVariant noNumbers() { return QVariant::fromValue(QList<int>()); }

} // namespace

const QString NotifierMenu::path = u"/MenuBar"_s;

NotifierMenu::NotifierMenu(QDBusConnection bus, const QMenu& menu)
    : BusObject(std::move(bus), {path, u"com.canonical.dbusmenu"_s, menuMembers}), m_menu(menu) {}

QVariantMap NotifierMenu::properties() const {
    return {{u"Version"_s, 3U},
            {u"Status"_s, u"normal"_s},
            {u"TextDirection"_s, u"ltr"_s},
            {u"IconThemePath"_s, QStringList()}};
}

std::optional<QVariantList> NotifierMenu::handleCall(const QString& method, const QVariantList& arguments) {
    const QVariant first = arguments.value(0);
    if (method == u"GetLayout"_s)
        return QVariantList{revision, layout(first.toInt())};
    if (method == u"GetGroupProperties"_s)
        return QVariantList{propertiesOf(qdbus_cast<QList<int>>(first))};
    if (method == u"GetProperty"_s)
        return QVariantList{propertyOf(first.toInt(), arguments.value(1).toString())};
    if (method == u"AboutToShow"_s)
        return QVariantList{false};
    if (method == u"AboutToShowGroup"_s)
        return QVariantList{noNumbers(), noNumbers()};
    if (method == u"Event"_s) {
        handleEvent({first.toInt(), arguments.value(1).toString()});
        return QVariantList();
    }
    if (method == u"EventGroup"_s) {
        for (const BusMenuEvent& event : qdbus_cast<QList<BusMenuEvent>>(first))
            handleEvent(event);
        return QVariantList{noNumbers()};
    }
    return std::nullopt;
}

QVariant NotifierMenu::layout(int id) const {
    if (const QAction* const action = entry(id))
        return QVariant::fromValue(BusMenuNode{id, describe(*action), {}});
    BusMenuNode menu{wholeMenu, {{u"children-display"_s, u"submenu"_s}}, {}};
    for (const int child : entries())
        menu.children.append({child, describe(*entry(child)), {}});
    return QVariant::fromValue(menu);
}

QVariant NotifierMenu::propertiesOf(QList<int> ids) const {
    if (ids.isEmpty())
        ids = entries();
    QList<BusMenuProperties> all;
    for (const int id : ids)
        if (const QAction* const action = entry(id))
            all.append({id, describe(*action)});
    return QVariant::fromValue(all);
}

QVariant NotifierMenu::propertyOf(int id, const QString& name) const {
    const QAction* const action = entry(id);
    const QVariant value = action != nullptr ? describe(*action).value(name) : QVariant();
    return QVariant::fromValue(QDBusVariant(value.isValid() ? value : QVariant(QString())));
}

QList<int> NotifierMenu::entries() const {
    QList<int> numbers;
    for (int id = 1; entry(id) != nullptr; ++id)
        numbers.append(id);
    return numbers;
}

QAction* NotifierMenu::entry(int id) const { return m_menu.actions().value(id - 1); }

void NotifierMenu::handleEvent(const BusMenuEvent& event) const {
    QAction* const action = entry(event.id);
    if (action != nullptr && event.name == u"clicked"_s)
        QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

} // namespace brisklog
