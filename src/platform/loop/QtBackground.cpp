#include "platform/loop/QtBackground.h"

#include <QObject>
#include <QThreadPool>
#include <atomic>

namespace brisklog {
namespace {

constexpr int idleMilliseconds = 2000;
constexpr int shutdownTimeoutMilliseconds = 2000;

struct Assignment {
    std::function<void()> work;
    std::function<void()> finished;
    std::atomic<bool> isCancelled = false;
};

class QtBackgroundTask final : public BackgroundTask {
public:
    explicit QtBackgroundTask(std::shared_ptr<Assignment> assignment) : m_assignment(std::move(assignment)) {}

    ~QtBackgroundTask() override { m_assignment->isCancelled = true; }

    QtBackgroundTask(const QtBackgroundTask&) = delete;
    QtBackgroundTask& operator=(const QtBackgroundTask&) = delete;

private:
    std::shared_ptr<Assignment> m_assignment;
};

} // namespace

struct QtBackground::Threads {
    QThreadPool pool;
    /// Lives on the main thread and receives finished work there.
    QObject mainThread;
};

QtBackground::QtBackground(int threads) : m_threads(std::make_unique<Threads>()) {
    m_threads->pool.setMaxThreadCount(threads);
    m_threads->pool.setExpiryTimeout(idleMilliseconds);
}

QtBackground::~QtBackground() {
    m_threads->pool.clear();
    if (!m_threads->pool.waitForDone(shutdownTimeoutMilliseconds))
        static_cast<void>(m_threads.release());
}

std::unique_ptr<BackgroundTask> QtBackground::run(std::function<void()> work,
                                                  std::function<void()> finished) {
    auto assignment = std::make_shared<Assignment>();
    assignment->work = std::move(work);
    assignment->finished = std::move(finished);
    m_threads->pool.start([assignment, receiver = &m_threads->mainThread] {
        if (assignment->isCancelled)
            return;
        assignment->work();
        const auto deliver = [assignment] {
            if (!assignment->isCancelled)
                assignment->finished();
        };
        QMetaObject::invokeMethod(receiver, deliver, Qt::QueuedConnection);
    });
    return std::make_unique<QtBackgroundTask>(std::move(assignment));
}

} // namespace brisklog
