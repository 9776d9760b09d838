#include "ui/lists/FloatingScrollBar.h"

#include "ui/look/Painting.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace brisklog {
namespace {

constexpr int reach = 12;
constexpr int edge = 3;
constexpr int thickness = 4;
constexpr int hoveredThickness = 6;
constexpr int shortest = 24;
constexpr int lingerMilliseconds = 900;

} // namespace

FloatingScrollBar& FloatingScrollBar::attach(QAbstractScrollArea& area) {
    return *new FloatingScrollBar(area);
}

FloatingScrollBar::FloatingScrollBar(QAbstractScrollArea& area) : QWidget(&area), m_area(area) {
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    hide();
    m_scrolled.setSingleShot(true);
    m_scrolled.setInterval(lingerMilliseconds);
    connect(&m_scrolled, &QTimer::timeout, this, [this] { follow(); });
    connect(area.verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { follow(); });
    connect(area.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        m_scrolled.start();
        follow();
    });
    connect(qApp, &QApplication::focusChanged, this, [this] { follow(); });
}

bool FloatingScrollBar::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
        m_isAreaHovered = event->type() == QEvent::Enter;
        follow();
        break;
    case QEvent::Resize:
    case QEvent::Show:
        follow();
        break;
    case QEvent::Hide:
        m_isAreaHovered = false;
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool FloatingScrollBar::isWanted() const {
    const QScrollBar& bar = *m_area.verticalScrollBar();
    if (bar.maximum() <= bar.minimum())
        return false;
    const QWidget* focused = QApplication::focusWidget();
    const bool hasFocus = focused && (focused == &m_area || m_area.isAncestorOf(focused));
    return m_isAreaHovered || m_isDragged || m_scrolled.isActive() || hasFocus;
}

void FloatingScrollBar::follow() {
    // While the area is being destroyed the focus changes once more, when it is no longer a scroll area.
    if (!qobject_cast<QAbstractScrollArea*>(parentWidget()))
        return;
    const bool wanted = isWanted();
    if (wanted)
        place();
    if (wanted == isVisibleTo(&m_area))
        return;
    setVisible(wanted);
    raise();
}

FloatingScrollBar::Travel FloatingScrollBar::travel() const {
    const QScrollBar& bar = *m_area.verticalScrollBar();
    const int track = m_area.height() - 2 * edge;
    const int whole = bar.maximum() - bar.minimum() + bar.pageStep();
    const int length =
        std::clamp(track * bar.pageStep() / std::max(1, whole), std::min(shortest, track), track);
    return {.length = length, .room = track - length, .range = bar.maximum() - bar.minimum()};
}

void FloatingScrollBar::place() {
    const QScrollBar& bar = *m_area.verticalScrollBar();
    const Travel way = travel();
    const qint64 scrolled = bar.value() - bar.minimum();
    const int top = edge + static_cast<int>(scrolled * way.room / std::max(1, way.range));
    setGeometry(m_area.width() - reach, top, reach, way.length);
}

void FloatingScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int width = m_isHovered || m_isDragged ? hoveredThickness : thickness;
    fillRounded(painter, QRectF(reach - edge - width, 0, width, height()), width / 2.0,
                withOpacity(Palette::current().secondary, 0.35));
}

void FloatingScrollBar::mousePressEvent(QMouseEvent* event) {
    m_isDragged = true;
    m_dragOffset = event->position().toPoint().y();
}

void FloatingScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (!m_isDragged)
        return;
    const Travel way = travel();
    const int top = mapToParent(event->position().toPoint()).y() - m_dragOffset - edge;
    QScrollBar& bar = *m_area.verticalScrollBar();
    bar.setValue(bar.minimum() + static_cast<int>(qint64(top) * way.range / std::max(1, way.room)));
}

void FloatingScrollBar::mouseReleaseEvent(QMouseEvent*) {
    m_isDragged = false;
    follow();
    update();
}

void FloatingScrollBar::enterEvent(QEnterEvent*) {
    m_isHovered = true;
    update();
}

void FloatingScrollBar::leaveEvent(QEvent*) {
    m_isHovered = false;
    update();
}

} // namespace brisklog
