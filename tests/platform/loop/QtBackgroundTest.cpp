#include "platform/loop/QtBackground.h"

#include <QCoreApplication>
#include <QThread>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <semaphore>
#include <thread>

namespace brisklog::test {
namespace {

class QtBackgroundTest : public testing::Test {
protected:
    /// Runs the event loop until the condition holds; only the test's own time limit ends the wait.
    static void turnUntil(const std::function<bool()>& condition) {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    }

    std::string name = "test";
    std::array<char*, 2> arguments{name.data(), nullptr};
    int argumentCount = 1;
    QCoreApplication application{argumentCount, arguments.data()};
};

TEST_F(QtBackgroundTest, worksOnAnotherThreadAndFinishesOnThisOne) {
    QtBackground background(2);
    std::thread::id workedOn;
    std::thread::id finishedOn;
    const auto task = background.run([&] { workedOn = std::this_thread::get_id(); },
                                     [&] { finishedOn = std::this_thread::get_id(); });
    EXPECT_EQ(finishedOn, std::thread::id()) << "it must not finish before the event loop runs";
    turnUntil([&] { return finishedOn != std::thread::id(); });
    EXPECT_EQ(finishedOn, std::this_thread::get_id());
    EXPECT_NE(workedOn, std::this_thread::get_id());
    EXPECT_NE(workedOn, std::thread::id());
}

TEST_F(QtBackgroundTest, handsOverWhatWasComputed) {
    QtBackground background(1);
    std::string delivered;
    const auto task = computeIn<std::string>(
        background, [] { return std::string("Ergebnis"); },
        [&](std::string value) { delivered = std::move(value); });
    turnUntil([&] { return !delivered.empty(); });
    EXPECT_EQ(delivered, "Ergebnis");
}

TEST_F(QtBackgroundTest, whatIsGivenUpInTimeIsNeverBegun) {
    QtBackground background(1);
    std::binary_semaphore mayGoOn{0};
    bool isFirstFinished = false;
    bool isSecondBegun = false;
    bool isThirdFinished = false;
    const auto first = background.run([&] { mayGoOn.acquire(); }, [&] { isFirstFinished = true; });
    auto second = background.run([&] { isSecondBegun = true; }, [] { FAIL(); });
    const auto third = background.run([] {}, [&] { isThirdFinished = true; });
    second.reset();
    mayGoOn.release();
    turnUntil([&] { return isThirdFinished; });
    EXPECT_TRUE(isFirstFinished);
    EXPECT_FALSE(isSecondBegun);
}

TEST_F(QtBackgroundTest, whatIsGivenUpUnderWayDeliversNothing) {
    std::binary_semaphore hasBegun{0};
    std::binary_semaphore mayGoOn{0};
    {
        QtBackground background(1);
        auto task = background.run(
            [&] {
                hasBegun.release();
                mayGoOn.acquire();
            },
            [] { FAIL(); });
        hasBegun.acquire();
        task.reset();
        mayGoOn.release();
    }
    QCoreApplication::processEvents();
}

TEST_F(QtBackgroundTest, aTaskMayBeGivenUpFromItsOwnFinish) {
    QtBackground background(1);
    std::unique_ptr<BackgroundTask> task;
    auto captured = std::make_shared<int>();
    const std::weak_ptr<int> watched = captured;
    bool isFinished = false;
    bool wasKept = false;
    task = background.run([] {},
                          [&, captured = std::move(captured)] {
                              // What the action captured must not be destroyed while it runs.
                              const auto& watchedFromOutside = watched;
                              auto& wasKeptOutside = wasKept;
                              auto& isFinishedOutside = isFinished;
                              task.reset();
                              wasKeptOutside = !watchedFromOutside.expired();
                              isFinishedOutside = true;
                          });
    turnUntil([&] { return isFinished; });
    EXPECT_TRUE(wasKept);
    EXPECT_EQ(task, nullptr);
    EXPECT_TRUE(watched.expired());
}

TEST_F(QtBackgroundTest, endingWithWorkUnderWayWaitsForIt) {
    bool isDone = false;
    std::binary_semaphore hasBegun{0};
    std::unique_ptr<BackgroundTask> task;
    {
        QtBackground background(1);
        task = background.run(
            [&] {
                hasBegun.release();
                QThread::msleep(20);
                isDone = true;
            },
            [] { FAIL(); });
        hasBegun.acquire();
    }
    EXPECT_TRUE(isDone);
    QCoreApplication::processEvents();
}

} // namespace
} // namespace brisklog::test
