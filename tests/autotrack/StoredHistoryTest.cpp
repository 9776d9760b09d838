// What the tracker stores in the user defaults, and what it does with values that do not belong there.

#include "TrackerFixture.h"

#include <gmock/gmock.h>
#include <limits>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* saveComplaint = "Fehler beim Speichern der automatischen Tracking-Daten: ";

constexpr const char* twoDays =
    R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","date":816390000.0,"sessions":[)"
    R"({"id":"1A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appName":"Ed \"x\" Grüße","bundleIdentifier":"org.ed",)"
    R"("startTime":816426000.25,"endTime":816426010.5,"iconData":"Zm9vYmFy"},)"
    R"({"id":"2A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appName":"B","bundleIdentifier":"org.b",)"
    R"("startTime":816426010.5,"endTime":816426011.0}]},)"
    R"({"id":"3A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","date":816476400.0,"sessions":[]}])";

TEST_F(Tracker, theStoredFormIsReadAndWrittenExactly) {
    store(twoDays);
    start();
    ASSERT_THAT(days(), SizeIs(2));
    const AppUsageSession& session = days()[0].sessions.at(0);
    EXPECT_EQ(session.appName, "Ed \"x\" Grüße");
    EXPECT_EQ(session.startTime, Date{816426000.25});
    EXPECT_EQ(session.endTime, Date{816426010.5});
    EXPECT_EQ(session.iconData.value().bytes(), "foobar");
    EXPECT_EQ(days()[0].sessions.at(1).iconData, std::nullopt);
    manager().saveData();
    EXPECT_EQ(stored(), twoDays);
    manager().dailyUsageData = std::vector(days());
    manager().saveData();
    EXPECT_EQ(stored(), twoDays);
}

TEST_F(Tracker, orderOfKeysAndWhiteSpaceDoNotMatter) {
    store(R"( [ {"sessions":[{"endTime":5,"bundleIdentifier":"b","startTime":4,"appName":"a",)"
          R"("id":"1a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9","later":{"x":[1]}}], "date":0,)"
          R"("id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9"} ] )");
    start();
    EXPECT_EQ(days().at(0).sessions.at(0).endTime, Date{5});
    EXPECT_THAT(log.lines, IsEmpty());
    manager().saveData();
    EXPECT_EQ(stored(),
              R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","date":0.0,"sessions":[)"
              R"({"id":"1A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appName":"a","bundleIdentifier":"b",)"
              R"("startTime":4.0,"endTime":5.0}]}])");
}

TEST_F(Tracker, aSessionWithoutEndIsReadAndCountsUpToNow) {
    store(
        R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","date":0,"sessions":[)"
        R"({"id":"1A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appName":"a","bundleIdentifier":"b","startTime":4,)"
        R"("endTime":null}]}])");
    start();
    EXPECT_EQ(days().at(0).totalDuration(Date{10}), 6);
}

/// Expects that nothing is loaded, that one line gives this reason, and that the stored bytes stay until the
/// next save.
void expectRefused(Tracker& test, const std::string& blob, const std::string& reason) {
    test.log.lines.clear();
    test.store(blob);
    test.start();
    EXPECT_THAT(test.days(), IsEmpty());
    EXPECT_THAT(test.log.lines, ElementsAre(loadComplaint + reason));
    EXPECT_EQ(test.stored(), blob);
}

TEST_F(Tracker, aHistoryThatCannotBeDecodedIsAnEmptyOneWithOneLine) {
    const std::string day = R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","date":0,"sessions":[)";
    const std::string session =
        R"({"id":"1A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","appName":"a","bundleIdentifier":"b","startTime":4)";
    expectRefused(*this, "", "The document is empty. (byte 0)");
    expectRefused(*this, "{}", "expected a list, found an object (byte 0)");
    expectRefused(*this, day, "[0].sessions[0]: Invalid value. (byte 67)");
    expectRefused(*this, R"([{"date":0,"sessions":[]}])", "[0].id: missing (byte 24)");
    expectRefused(*this, day + R"({"appName":5}]}])",
                  "[0].sessions[0].appName: expected text, found a number (byte 79)");
    expectRefused(*this, day + session + R"(,"endTime":true}]}])",
                  "[0].sessions[0].endTime: expected a number, found a truth value (byte 177)");
    expectRefused(*this, day + session + R"(,"iconData":"Zm9"}]}])",
                  "[0].sessions[0].iconData: text is no Base64 (byte 179)");
    expectRefused(*this, day + session + R"(,"iconData":7}]}])",
                  "[0].sessions[0].iconData: expected Base64 text, found a number (byte 175)");
}

TEST_F(Tracker, theNextSaveReplacesAHistoryThatCannotBeDecoded) {
    store("[{");
    userDefaults.setValue("autoTrackingEnabled", true);
    start();
    EXPECT_TRUE(manager().isTracking);
    EXPECT_EQ(stored(), "[]");
    use("Editor", 5);
    use("Browser", 5);
    start();
    EXPECT_THAT(days(), SizeIs(1));
}

TEST_F(Tracker, anIconThatIsNoImageIsKeptWithItsSession) {
    std::string blob = twoDays;
    blob.replace(blob.find("Zm9vYmFy"), 8, "bm8gaW1hZ2U=");
    store(blob);
    start();
    EXPECT_EQ(days().at(0).sessions.at(0).iconData.value().bytes(), "no image");
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(Tracker, aValueThatIsNoDataIsAnEmptyHistoryWithOneLine) {
    userDefaults.setValue("autoTrackingData", std::string(twoDays));
    start();
    EXPECT_THAT(days(), IsEmpty());
    EXPECT_THAT(log.lines, ElementsAre(StartsWith(loadComplaint)));
    manager().saveData();
    EXPECT_EQ(stored(), "[]");
}

TEST_F(Tracker, theStoredSwitchIsReadAsATruthValueOfAnyForm) {
    userDefaults.setValue("autoTrackingEnabled", std::string("YES"));
    start();
    EXPECT_TRUE(manager().isTracking);
    userDefaults.setValue("autoTrackingEnabled", std::int64_t{0});
    start();
    EXPECT_FALSE(manager().isTracking);
    userDefaults.setValue("autoTrackingEnabled", Data{"1"});
    start();
    EXPECT_FALSE(manager().isTracking);
}

TEST_F(Tracker, whatCannotBeEncodedIsOneLineAndNothingIsStored) {
    store(twoDays);
    start();
    manager().dailyUsageData.mutate(
        [](auto& days) { days[0].sessions[1].endTime = Date{std::numeric_limits<double>::infinity()}; });
    manager().startTracking();
    EXPECT_THAT(log.lines,
                ElementsAre(std::string(saveComplaint) + "[0].sessions[1].endTime: number is not finite"));
    EXPECT_EQ(stored(), twoDays);
    EXPECT_FALSE(userDefaults.holds("autoTrackingEnabled"));
    EXPECT_TRUE(manager().isTracking) << "tracking continues";
}

} // namespace
} // namespace brisklog::test
