#include "app/StatusIcons.h"

#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <QSvgRenderer>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

QPixmap rendered(QSvgRenderer& renderer, int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

/// The icon that panels draw in their own colour. Asking the icon theme for one that was never installed
/// would read the whole theme, a third of the time the start takes.
QIcon namedIcon() {
    const bool isInstalled = !QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                     u"icons/hicolor/symbolic/apps/brisklog-symbolic.svg"_s)
                                  .isEmpty();
    return isInstalled ? QIcon::fromTheme(u"brisklog-symbolic"_s) : QIcon();
}

} // namespace

StatusIcons makeStatusIcons() {
    QIcon bitmap;
    QSvgRenderer renderer(u":/symbols/brisklog-status.svg"_s);
    for (const int size : {16, 22, 24, 32, 48})
        bitmap.addPixmap(rendered(renderer, size));
    return {.named = namedIcon(), .bitmap = bitmap};
}

} // namespace brisklog
