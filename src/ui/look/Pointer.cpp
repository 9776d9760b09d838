#include "ui/look/Pointer.h"

#include <QApplication>
#include <QMouseEvent>
#include <utility>

namespace brisklog {
namespace {

/// Waits for the release of the last mouse button, wherever that happens.
class ReleaseWaiter final : public QObject {
public:
    ReleaseWaiter(QObject& owner, std::function<void()> action)
        : QObject(&owner), m_action(std::move(action)) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isRelease = event->type() == QEvent::MouseButtonRelease;
        if (isRelease && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
            qApp->removeEventFilter(this);
            // What the click does comes first.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    onceNoButtonIsDown(*parent(), std::move(m_action));
                    deleteLater();
                },
                Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_action;
};

} // namespace

void onceNoButtonIsDown(QObject& owner, std::function<void()> action) {
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        action();
    else
        new ReleaseWaiter(owner, std::move(action));
}

} // namespace brisklog
