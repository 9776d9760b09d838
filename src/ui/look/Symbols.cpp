#include "ui/look/Symbols.h"

#include <QColor>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

QPixmap tinted(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
    QSvgRenderer renderer(u":/symbols/%1.svg"_s.arg(name));
    if (!renderer.isValid())
        return {};
    const int pixels = static_cast<int>(std::lround(size * devicePixelRatio));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}

} // namespace

QPixmap symbolPixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
    const QString key = u"symbol %1 %2 %3 %4"_s.arg(name).arg(size).arg(color.rgba()).arg(devicePixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = tinted(name, size, color, devicePixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

void paintSymbol(QPainter& painter, const QRect& area, const QString& name, int size, const QColor& color) {
    // The painter's actual scale, also when a widget is rendered into a picture with a different ratio.
    const QTransform toDevice = painter.deviceTransform();
    const QPoint corner(area.x() + (area.width() - size) / 2, area.y() + (area.height() - size) / 2);
    const QPointF whole = toDevice.map(QPointF(corner)).toPoint();
    painter.drawPixmap(toDevice.inverted().map(whole), symbolPixmap(name, size, color, toDevice.m11()));
}

} // namespace brisklog
