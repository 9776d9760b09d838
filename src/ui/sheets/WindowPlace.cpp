#include "ui/sheets/WindowPlace.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace brisklog {
namespace {

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

QPoint centredOn(const QScreen& screen, const QSize& window) {
    QRect place(QPoint(), window);
    place.moveCenter(screen.availableGeometry().center());
    return place.topLeft();
}

void placeWindow(QWidget& window, const QPoint& place) {
    delete window.findChild<QObject*>(QStringLiteral("place"), Qt::FindDirectChildrenOnly);
    window.move(place);
    new PlaceKeeper(window, place);
}

} // namespace brisklog
