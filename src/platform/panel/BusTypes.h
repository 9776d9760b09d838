#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariantMap>

class QIcon;

namespace brisklog {

/// A picture as panels take it: four bytes a pixel, in the order alpha, red, green, blue.
struct BusPicture {
    int width = 0;
    int height = 0;
    QByteArray pixels;

    bool operator==(const BusPicture&) const = default;
};

/// What a panel shows when the pointer rests on an icon.
struct BusToolTip {
    QString iconName;
    QList<BusPicture> pictures;
    QString title;
    QString text;
};

/// An entry of a menu, or with the number 0 the menu itself, and the entries in it.
struct BusMenuNode {
    int id = 0;
    QVariantMap properties;
    QList<BusMenuNode> children;
};

/// What is known of one entry of a menu.
struct BusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// What the user did to an entry of a menu.
struct BusMenuEvent {
    int id = 0;
    QString name;
};

/// Must be called before any of these goes over the bus.
void registerBusTypes();

/// The icon in all its sizes.
[[nodiscard]] QList<BusPicture> busPictures(const QIcon& icon);

QDBusArgument& operator<<(QDBusArgument& argument, const BusPicture& picture);
QDBusArgument& operator<<(QDBusArgument& argument, const BusToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuProperties& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusPicture& picture);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuProperties& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event);

} // namespace brisklog
