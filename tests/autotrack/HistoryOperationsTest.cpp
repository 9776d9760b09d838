// Whatever happens, the stored bytes are exactly the encoding of the whole history.

#include "TrackerFixture.h"

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <random>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

std::string encodingOf(const std::vector<DailyAppUsage>& days, json::Layout layout = json::Layout::compact) {
    return std::string(json::encode(days, layout).value().bytes());
}

/// A user who does everything possible, in random order.
class RestlessUser {
public:
    RestlessUser(Tracker& desktop, LargeValueStore& userDefaults, unsigned seed)
        : m_desktop(desktop), m_userDefaults(userDefaults), m_chance(seed) {
        for (const char* const name : {"Editor", "Browser", "Zeichnen \"2\""})
            desktop.frontmost.icons["org." + std::string(name)] = std::string(500 + upTo(400), name[0]);
        restart();
        m_manager->startTracking();
    }

    void act() {
        switch (upTo(40)) {
        case 0:
            return restart();
        case 1:
            return m_desktop.clock.set(now().addingSeconds(-fullDay * upTo(4)));
        case 2:
            return m_desktop.clock.set(now().addingSeconds(fullDay * upTo(3)));
        case 3:
            return m_manager->clearDataForDay(now().addingSeconds(-fullDay * upTo(4)));
        case 4:
            return m_manager->stopTracking();
        case 5:
            return m_manager->startTracking();
        case 6:
            return changeFromOutside();
        case 7:
            return storeInAnotherForm();
        case 8:
            return upTo(8) == 0 ? m_manager->clearAllData() : m_manager->saveData();
        default:
            return useSomething();
        }
    }

    [[nodiscard]] const std::vector<DailyAppUsage>& days() const { return m_manager->dailyUsageData; }

private:
    [[nodiscard]] int upTo(int end) { return std::uniform_int_distribution(0, end - 1)(m_chance); }

    [[nodiscard]] Date now() const { return m_desktop.clock.now(); }

    void useSomething() {
        const std::vector<std::string> names{"Editor", "Browser", "Zeichnen \"2\"", "Ohne Bild"};
        m_desktop.use(names[static_cast<std::size_t>(upTo(4))], upTo(10) == 0 ? 30000 : 1 + upTo(5));
    }

    void restart() {
        m_manager.reset();
        AutoTrackingPlatform platform = m_desktop.platform();
        m_manager =
            std::make_unique<AutoTrackingManager>(AutoTrackingPlatform{.frontmost = platform.frontmost,
                                                                       .userDefaults = m_userDefaults,
                                                                       .clock = platform.clock,
                                                                       .runLoop = platform.runLoop,
                                                                       .log = platform.log});
    }

    void changeFromOutside() {
        m_manager->dailyUsageData.mutate([](auto& days) {
            if (!days.empty())
                std::ranges::reverse(days.front().sessions);
        });
        m_manager->saveData();
    }

    /// Stores the same history in a different layout, as another program might have written it.
    void storeInAnotherForm() {
        const auto before = days();
        m_userDefaults.setValue("autoTrackingData", Data{encodingOf(before, json::Layout::pretty)});
        restart();
        EXPECT_EQ(days(), before);
        m_manager->saveData();
    }

    Tracker& m_desktop;
    LargeValueStore& m_userDefaults;
    std::minstd_rand m_chance;
    std::unique_ptr<AutoTrackingManager> m_manager;
};

TEST_F(Tracker, whateverIsDoneTheStoredBytesAreTheWholeEncoding) {
    RestlessUser user(*this, userDefaults, 1);
    for (int round = 0; round < 6000; ++round) {
        user.act();
        ASSERT_EQ(stored(), encodingOf(user.days())) << "round " << round;
    }
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_THAT(userDefaults.tailsReplaced, SizeIs(::testing::Gt(2000u)));
}

TEST_F(Tracker, whateverIsDoneADatabaseHoldsTheWholeEncoding) {
    const TemporaryHome home;
    SqliteUserDefaults database(home.configuration() / "defaults.sqlite", clock, log);
    RestlessUser user(*this, database, 2);
    for (int round = 0; round < 2500; ++round) {
        user.act();
        ASSERT_EQ(dataValue(database, "autoTrackingData"), encodingOf(user.days())) << "round " << round;
    }
    EXPECT_THAT(log.lines, IsEmpty());
}

// What is written

TEST_F(Tracker, aClosedSessionWritesNothingButItself) {
    start();
    manager().startTracking();
    for (int i = 0; i < 500; ++i)
        use(i % 2 == 0 ? "Editor" : "Browser", 1);
    userDefaults.tailsReplaced.clear();
    use("Editor", 1);
    ASSERT_THAT(userDefaults.tailsReplaced, SizeIs(1));
    EXPECT_LT(userDefaults.tailsReplaced[0].second, 400u);
    start();
    userDefaults.tailsReplaced.clear();
    use("Browser", 1);
    ASSERT_THAT(userDefaults.tailsReplaced, SizeIs(1));
    EXPECT_LT(userDefaults.tailsReplaced[0].second, 400u) << "even for the first session after a restart";
}

TEST_F(Tracker, whatCouldNotBeWrittenIsWrittenWithTheNextSession) {
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Browser", 5);
    const std::string before = stored();
    userDefaults.writesFail = true;
    use("Editor", 5);
    clock.set(clock.now().addingSeconds(fullDay));
    use("Browser", 5);
    use("Editor", 5);
    EXPECT_EQ(stored(), before);
    userDefaults.writesFail = false;
    use("Browser", 5);
    EXPECT_EQ(stored(), encodingOf(days()));
    start();
    EXPECT_THAT(days(), SizeIs(2));
}

TEST_F(Tracker, aValueThatVanishedOrWasReplacedIsWrittenWhole) {
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Browser", 5);
    userDefaults.removeValue("autoTrackingData");
    use("Editor", 5);
    EXPECT_EQ(stored(), encodingOf(days()));
    store("something else, and longer than what was there before: " + stored());
    use("Browser", 5);
    EXPECT_EQ(stored(), encodingOf(days()));
}

// A history that could not be loaded is not overwritten

std::vector<std::string> keysOf(const UserDefaults& userDefaults) {
    std::vector<std::string> keys;
    for (const auto& entry : userDefaults.entries())
        keys.push_back(entry.key);
    return keys;
}

TEST_F(Tracker, aHistoryThatCannotBeLoadedIsSetAsideWhenItIsReplaced) {
    store("[{ what once was a history");
    start();
    EXPECT_THAT(keysOf(userDefaults), ElementsAre("autoTrackingData"));
    manager().startTracking();
    EXPECT_EQ(stored(), "[]");
    EXPECT_THAT(keysOf(userDefaults), ElementsAre("autoTrackingData", "autoTrackingEnabled",
                                                  StartsWith("autoTrackingUnreadable-")));
    EXPECT_EQ(dataValue(userDefaults, keysOf(userDefaults).back()), "[{ what once was a history");
    use("Editor", 5);
    use("Browser", 5);
    EXPECT_EQ(stored(), encodingOf(days()));
    EXPECT_THAT(keysOf(userDefaults), SizeIs(3));
}

TEST_F(Tracker, deletingAllRecordedDataDeletesWhatWasSetAside) {
    store("[{ what once was a history");
    start();
    manager().clearAllData();
    EXPECT_THAT(keysOf(userDefaults), ElementsAre("autoTrackingData", "autoTrackingEnabled"));
    store("another");
    start();
    manager().startTracking();
    EXPECT_THAT(keysOf(userDefaults), SizeIs(3));
    manager().clearAllData();
    EXPECT_THAT(keysOf(userDefaults), ElementsAre("autoTrackingData", "autoTrackingEnabled"));
    EXPECT_EQ(stored(), "[]");
}

} // namespace
} // namespace brisklog::test
