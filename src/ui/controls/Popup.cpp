#include "ui/controls/Popup.h"

#include "ui/look/Painting.h"
#include "ui/look/WindowPlace.h"

#include <QPainter>
#include <QScreen>
#include <algorithm>

namespace brisklog {
namespace {

constexpr int frameRadius = 8;
constexpr int gap = 4;

QPoint placeFor(const QWidget& anchor, const QSize& size, PopupPlace place) {
    const QRect available = freeAreaOf(*anchor.screen());
    const QPoint below = anchor.mapToGlobal(QPoint(0, anchor.height() + gap));
    const QPoint above = anchor.mapToGlobal(QPoint(0, -gap - size.height()));
    const QWidget& window = *anchor.window();
    const int middle = window.mapToGlobal(QPoint(window.width() / 2, 0)).x() - size.width() / 2;
    const bool hasRoomBelow =
        below.y() + size.height() <= available.bottom() + 1 || above.y() < available.top();
    const int left = place == PopupPlace::middleOfWindow ? middle : below.x();
    const int top = hasRoomBelow ? below.y() : above.y();
    return {
        std::clamp(left, available.left(), std::max(available.left(), available.right() + 1 - size.width())),
        std::clamp(top, available.top(), std::max(available.top(), available.bottom() + 1 - size.height()))};
}

} // namespace

Popup::Popup(QWidget& anchor)
    : QWidget(&anchor, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint), m_anchor(anchor) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground, !areCornersCut());
    // The click that closes it must not reopen it.
    setAttribute(Qt::WA_NoMouseReplay);
}

void Popup::open(PopupPlace place) {
    move(placeFor(m_anchor, size(), place));
    show();
}

void Popup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    const QColor frame = withOpacity(palette.secondary, 0.3);
    if (areCornersCut())
        painter.fillRect(rect(), blendedOver(frame, palette.card));
    fillRounded(painter, rect(), frameRadius, palette.card);
    frameRounded(painter, rect(), frameRadius, frame);
}

void Popup::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (areCornersCut())
        setMask(roundedShape(size(), frameRadius));
}

} // namespace brisklog
