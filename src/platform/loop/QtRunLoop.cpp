#include "platform/loop/QtRunLoop.h"

#include <QTimer>
#include <cmath>

namespace brisklog {
namespace {

class QtTimer final : public Timer {
public:
    QtTimer(TimeInterval interval, bool repeats, const std::function<void()>& action) {
        m_timer.setInterval(static_cast<int>(std::lround(interval * 1000)));
        m_timer.setSingleShot(!repeats);
        m_timer.setTimerType(repeats ? Qt::CoarseTimer : Qt::PreciseTimer);
        // Runs a copy, because the action may destroy the timer.
        QObject::connect(&m_timer, &QTimer::timeout, [action] {
            const auto copy = action;
            copy();
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

} // namespace

std::unique_ptr<Timer> QtRunLoop::repeatEvery(TimeInterval interval, std::function<void()> action) {
    return std::make_unique<QtTimer>(interval, true, action);
}

std::unique_ptr<Timer> QtRunLoop::runAfter(TimeInterval delay, std::function<void()> action) {
    return std::make_unique<QtTimer>(delay, false, action);
}

} // namespace brisklog
