#include "platform/panel/BusTypes.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

namespace brisklog {

void registerBusTypes() {
    qDBusRegisterMetaType<BusPicture>();
    qDBusRegisterMetaType<QList<BusPicture>>();
    qDBusRegisterMetaType<BusToolTip>();
    qDBusRegisterMetaType<BusMenuNode>();
    qDBusRegisterMetaType<BusMenuProperties>();
    qDBusRegisterMetaType<QList<BusMenuProperties>>();
    qDBusRegisterMetaType<BusMenuEvent>();
    qDBusRegisterMetaType<QList<BusMenuEvent>>();
}

QList<BusPicture> busPictures(const QIcon& icon) {
    QList<BusPicture> pictures;
    for (const QSize& size : icon.availableSizes()) {
        const QImage image = icon.pixmap(size, 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
        QByteArray pixels(image.sizeInBytes(), Qt::Uninitialized);
        qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / qsizetype(sizeof(quint32)),
                              pixels.data());
        pictures.append({image.width(), image.height(), pixels});
    }
    return pictures;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusPicture& picture) {
    argument.beginStructure();
    argument << picture.width << picture.height << picture.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.pictures << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuNode& node) {
    argument.beginStructure();
    argument << node.id << node.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const BusMenuNode& child : node.children)
        argument << QDBusVariant(QVariant::fromValue(child));
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuProperties& entry) {
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.name << QDBusVariant(0) << 0U;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusPicture& picture) {
    argument.beginStructure();
    argument >> picture.width >> picture.height >> picture.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.pictures >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuNode& node) {
    argument.beginStructure();
    argument >> node.id >> node.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        node.children.append(qdbus_cast<BusMenuNode>(child.variant()));
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuProperties& entry) {
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

/// What belongs to an event (a value, a time) is read over: nothing here depends on it.
const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event) {
    QDBusVariant value;
    uint time = 0;
    argument.beginStructure();
    argument >> event.id >> event.name >> value >> time;
    argument.endStructure();
    return argument;
}

} // namespace brisklog
