#include "ui/look/WindowPlace.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

namespace brisklog {
namespace {

/// What window managers add to a window, at the most.
constexpr QSize frame(12, 44);

/// Sets the position again at the first paint and at the activation, after which it is no longer needed.
class PlaceKeeper final : public QObject {
public:
    PlaceKeeper(QWidget& window, const QPoint& place) : QObject(&window), m_window(window), m_place(place) {
        setObjectName(QStringLiteral("place"));
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isActivated = event->type() == QEvent::WindowActivate;
        const bool isFirstPaint = event->type() == QEvent::Paint && !std::exchange(m_isPainted, true);
        if ((isActivated || isFirstPaint) && m_window.windowHandle())
            m_window.windowHandle()->setPosition(m_place);
        if (isActivated)
            deleteLater();
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_window;
    QPoint m_place;
    bool m_isPainted = false;
};

} // namespace

QRect freeAreaOf(const QScreen& screen) {
    const QRect area = screen.availableGeometry();
    const bool isFractional = std::floor(screen.devicePixelRatio()) != screen.devicePixelRatio();
    return isFractional ? area.adjusted(0, 0, -1, -1) : area;
}

QSize fittingInFrame(const QSize& wanted, const QRect& available) {
    return wanted.boundedTo(available.size() - frame);
}

void placeInFrame(QWidget& window, const QSize& wanted, const QRect& available) {
    QRect place(QPoint(), fittingInFrame(wanted, available));
    place.moveCenter(available.center());
    const QSize last = available.size() - place.size() - frame;
    place.moveTo(std::min(place.x(), available.x() + last.width()),
                 std::min(place.y(), available.y() + last.height()));
    window.setMinimumSize(window.minimumSize().boundedTo(place.size()));
    window.resize(place.size());
    window.move(place.topLeft());
}

void placeWindow(QWidget& window, const QPoint& place) {
    delete window.findChild<QObject*>(QStringLiteral("place"), Qt::FindDirectChildrenOnly);
    window.move(place);
    new PlaceKeeper(window, place);
}

} // namespace brisklog
