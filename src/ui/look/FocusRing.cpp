#include "ui/look/FocusRing.h"

#include "ui/look/Painting.h"
#include "ui/look/Palette.h"

#include <QAbstractScrollArea>
#include <QFocusEvent>
#include <QPainter>
#include <QWidget>

namespace brisklog {
namespace {

constexpr int room = 3;

/// The widget that paints the ring; transparent to the pointer.
class Overlay final : public QWidget {
public:
    Overlay(QWidget& parent, int radius) : QWidget(&parent), m_radius(radius) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintFocusRing(painter, rect().adjusted(room, room, -room, -room), m_radius, Palette::current());
    }

private:
    int m_radius;
};

bool isViewport(const QWidget* widget) {
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget->parentWidget());
    return area && area->viewport() == widget;
}

/// The widget the ring is painted over: the content that scrolls with the widget, else the window.
QWidget& surroundingsOf(QWidget& widget) {
    QWidget* surroundings = widget.parentWidget();
    while (!surroundings->isWindow() && !isViewport(surroundings->parentWidget()))
        surroundings = surroundings->parentWidget();
    return *surroundings;
}

} // namespace

void paintFocusRing(QPainter& painter, const QRectF& around, qreal radius, const Palette& palette) {
    frameRounded(painter, around.adjusted(-room, -room, room, room), radius + room, palette.blue, 2);
}

FocusRing& FocusRing::attach(QWidget& widget, int radius, Place place) {
    return *new FocusRing(widget, radius, place);
}

FocusRing::FocusRing(QWidget& widget, int radius, Place place)
    : QObject(&widget), m_widget(widget), m_radius(radius), m_place(place) {
    widget.installEventFilter(this);
}

FocusRing::~FocusRing() { hide(); }

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    const bool isOurs = watched == &m_widget;
    switch (event->type()) {
    case QEvent::FocusIn:
        if (isOurs)
            handleFocusIn(*static_cast<QFocusEvent*>(event));
        break;
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::ParentChange:
        if (isOurs)
            hide();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        place();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::handleFocusIn(const QFocusEvent& event) {
    const Qt::FocusReason reason = event.reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        m_isKeyboard = true;
    else if (reason == Qt::MouseFocusReason)
        m_isKeyboard = false;
    if (m_isKeyboard)
        show();
}

void FocusRing::show() {
    if (m_overlay || m_widget.isWindow())
        return;
    QWidget& surroundings = surroundingsOf(m_widget);
    m_overlay = new Overlay(surroundings, m_radius);
    for (QWidget* above = m_widget.parentWidget(); above != &surroundings; above = above->parentWidget())
        above->installEventFilter(this);
    place();
    m_overlay->raise();
    m_overlay->show();
}

void FocusRing::hide() {
    if (!m_overlay)
        return;
    // Not destroyed at once: the toolkit may be iterating over the children of its parent.
    m_overlay->hide();
    m_overlay->deleteLater();
    m_overlay = nullptr;
}

void FocusRing::place() {
    if (!m_overlay)
        return;
    const QPoint corner = m_widget.mapTo(m_overlay->parentWidget(), QPoint(0, 0));
    const int margin = m_place == Place::inside ? 0 : room;
    m_overlay->setGeometry(QRect(corner, m_widget.size()).adjusted(-margin, -margin, margin, margin));
}

} // namespace brisklog
