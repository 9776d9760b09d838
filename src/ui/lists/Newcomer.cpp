#include "ui/lists/Newcomer.h"

#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QApplication>
#include <QMouseEvent>
#include <utility>

namespace brisklog {
namespace {

/// Longer than other movements, because nobody is waiting for it: the eye has to find it first.
constexpr int fadeMilliseconds = 1200;
constexpr double opacityAtFirst = 0.2;

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
                    m_action();
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

void Newcomer::appear(QObject& owner, std::function<void()> changed) {
    const auto fade = [this, changed = std::move(changed)](double strength) {
        m_strength = strength;
        changed();
    };
    fade(1);
    glide(owner, 1, 0, fadeMilliseconds, fade);
}

QColor Newcomer::ground() const {
    return withOpacity(Palette::current().blueFill, opacityAtFirst * m_strength);
}

} // namespace brisklog
