#include "app/shell/StatusIcons.h"

#include <QPainter>
#include <QPixmap>
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

} // namespace

StatusIcons makeStatusIcons() {
    QIcon bitmap;
    QSvgRenderer renderer(u":/symbols/brisklog-status.svg"_s);
    for (const int size : {16, 22, 24, 32, 48})
        bitmap.addPixmap(rendered(renderer, size));
    return {.named = QIcon::fromTheme(u"brisklog-symbolic"_s), .bitmap = bitmap};
}

} // namespace brisklog
