#include "platform/frontmost/KWinFrontmostWindow.h"

#include "FakeKWin.h"
#include "FrontmostExpectations.h"
#include "platform/DesktopFixture.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

QVariantList window(const QString& desktopFile, const QString& windowClass, const QString& process = u"0"_s) {
    return {desktopFile, windowClass, QString(), process};
}

/// A fake window manager that reports whatever a test wants.
class KWinFrontmostWindowTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        std::filesystem::create_directories(std::getenv("XDG_RUNTIME_DIR"));
        std::filesystem::permissions(std::getenv("XDG_RUNTIME_DIR"), std::filesystem::perms::owner_all);
    }

    void TearDown() override {
        m_frontmost.reset();
        m_kwin.reset();
        DesktopWithBus::TearDown();
    }

    FakeKWin& kwin() { return *m_kwin; }

    void startKWin(const FakeKWin::Behaviour& behaviour = {}) {
        m_kwin.emplace(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), behaviour);
    }

    void endKWin() { m_kwin.reset(); }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    void watch() {
        m_frontmost = applicationsBy<KWinFrontmostWindow>(bus());
        EXPECT_EQ(frontmost().availability(), Availability::notYetKnown);
        frontmost().beginWatching();
    }

    void watchUntilTheScriptRuns() {
        watch();
        ASSERT_TRUE(waitUntil([this] { return kwin().hasRun(); }));
    }

    /// Whether the report is accepted; waits for the answer.
    [[nodiscard]] static bool isTaken(const QDBusPendingCall& told) {
        EXPECT_TRUE(waitUntil([&told] { return told.isFinished(); }));
        return !told.isError();
    }

    [[nodiscard]] bool becomes(Availability expected) {
        return waitUntil([this, expected] { return frontmost().availability() == expected; });
    }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return becomesFrontmost(frontmost(), expected);
    }

private:
    std::optional<FakeKWin> m_kwin;
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(KWinFrontmostWindowTest, whatItIsToldIsInFront) {
    startKWin();
    watchUntilTheScriptRuns();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    kwin().tell(window(u"editor"_s, u"Editor-Class"_s));
    EXPECT_TRUE(becomes(application("Editor-Class")));
    kwin().tell(window(u"browser"_s, u""_s));
    EXPECT_TRUE(becomes(application("browser")));
    kwin().tell({});
    EXPECT_TRUE(becomes(bareDesktop));
}

TEST_F(KWinFrontmostWindowTest, theScriptIsFoundUnderItsOlderNameToo) {
    startKWin({.scriptFolder = u"/"_s});
    watchUntilTheScriptRuns();
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    EXPECT_THAT(kwin().calls(), testing::ElementsAre(u"isScriptLoaded"_s, u"unloadScript"_s, u"loadScript"_s,
                                                     u"run"_s, u"run"_s));
}

TEST_F(KWinFrontmostWindowTest, theFirstReportMayNameTheWindowBehindAnOwnOne) {
    startKWin({.scriptSpeaks = false});
    watchUntilTheScriptRuns();
    const QVariantList own = window(u"own"_s, u"own"_s, QString::number(ownWindows.process));
    kwin().tell(own + window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    kwin().tell(window(u"two"_s, u"two"_s));
    EXPECT_TRUE(becomes(application("two")));
    EXPECT_TRUE(isTaken(kwin().tell(own)));
    EXPECT_EQ(frontmost().current(), application("two"));
}

TEST_F(KWinFrontmostWindowTest, namesThatAreMissingForLessThanATickAreAGap) {
    startKWin();
    watchUntilTheScriptRuns();
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    EXPECT_TRUE(isTaken(kwin().tell(window(u""_s, u""_s))));
    EXPECT_EQ(frontmost().current(), application("one"));
    EXPECT_TRUE(isTaken(kwin().tell(window(u"two"_s, u"two"_s))));
    EXPECT_EQ(frontmost().current(), application("two"));
    EXPECT_TRUE(isTaken(kwin().tell({})));
    EXPECT_EQ(frontmost().current(), application("two"));
    EXPECT_TRUE(isTaken(kwin().tell(window(u"one"_s, u"one"_s))));
    EXPECT_EQ(frontmost().current(), application("one"));
    EXPECT_TRUE(isTaken(kwin().tell(window(u""_s, u""_s))));
    EXPECT_EQ(frontmost().current(), application("one"));
    EXPECT_EQ(frontmost().current(), DesktopApplication{});
}

TEST_F(KWinFrontmostWindowTest, strangeTextsAreMadeNames) {
    startKWin();
    watchUntilTheScriptRuns();
    kwin().tell(window(u""_s, u"Two\nLines\x1b[1m"_s));
    EXPECT_TRUE(becomes(application("Two Lines [1m")));
    const QString half(qsizetype{512} * 1024, u'x');
    kwin().tell(window(half, half, half));
    EXPECT_TRUE(becomes(application(std::string(256, 'x'))));
}

TEST_F(KWinFrontmostWindowTest, onlyKWinItselfIsBelieved) {
    startKWin();
    watchUntilTheScriptRuns();
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    auto stranger =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"stranger"_s);
    EXPECT_FALSE(isTaken(kwin().tellFrom(stranger, window(u"false"_s, u"false"_s))));
    EXPECT_EQ(frontmost().current(), application("one"));
    EXPECT_FALSE(isTaken(kwin().tellFrom(bus(), {}))) << "not even this program is believed";
    EXPECT_EQ(frontmost().current(), application("one"));
    QDBusConnection::disconnectFromBus(u"stranger"_s);
}

TEST_F(KWinFrontmostWindowTest, messagesOfAnotherFormAreIgnored) {
    startKWin();
    watchUntilTheScriptRuns();
    EXPECT_TRUE(isTaken(kwin().tell(window(u"one"_s, u"one"_s))));
    EXPECT_FALSE(isTaken(kwin().tell({u"false"_s})));
    EXPECT_FALSE(isTaken(kwin().tell({u"false"_s, u"false"_s, u"false"_s, u"0"_s, u"false"_s})));
    EXPECT_FALSE(isTaken(kwin().tell({QStringList{u"false"_s}, 7, true, -1})));
    EXPECT_EQ(frontmost().current(), application("one"));
}

TEST_F(KWinFrontmostWindowTest, scriptingThatComesLaterIsFound) {
    startKWin({.refusals = 2});
    watch();
    EXPECT_TRUE(becomes(Availability::unavailable));
    EXPECT_TRUE(becomes(Availability::available));
    EXPECT_TRUE(waitUntil([this] { return kwin().hasRun(); }));
}

TEST_F(KWinFrontmostWindowTest, aScriptThatSaysNothingIsUnavailableUntilItDoes) {
    startKWin({.scriptSpeaks = false});
    watchUntilTheScriptRuns();
    EXPECT_TRUE(becomes(Availability::unavailable));
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    EXPECT_EQ(frontmost().availability(), Availability::available);
}

TEST_F(KWinFrontmostWindowTest, aKWinThatCannotRunItIsUnavailableAndIsAskedAnew) {
    startKWin({.scriptFolder = u"/nowhere"_s});
    watch();
    EXPECT_TRUE(becomes(Availability::unavailable));
    const auto before = kwin().calls().size();
    frontmost().endWatching();
    frontmost().beginWatching();
    EXPECT_TRUE(waitUntil([&] { return kwin().calls().size() >= before + 3; }));
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(KWinFrontmostWindowTest, aKWinThatEndsAndComesBackIsAskedAgain) {
    startKWin();
    watchUntilTheScriptRuns();
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    int announcements = 0;
    const auto subscription = frontmost().observe([&] { ++announcements; });
    endKWin();
    EXPECT_TRUE(waitUntil([&] { return announcements == 1; }));
    EXPECT_EQ(frontmost().availability(), Availability::unavailable);
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startKWin();
    EXPECT_TRUE(becomes(Availability::available));
    ASSERT_TRUE(waitUntil([this] { return kwin().hasRun(); }));
    kwin().tell(window(u"two"_s, u"two"_s));
    EXPECT_TRUE(becomes(application("two")));
}

TEST_F(KWinFrontmostWindowTest, unwatchedTheScriptIsUnloadedAndNothingIsInFront) {
    startKWin();
    watchUntilTheScriptRuns();
    kwin().tell(window(u"one"_s, u"one"_s));
    EXPECT_TRUE(becomes(application("one")));
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_TRUE(waitUntil([this] { return !kwin().hasRun(); }));
    EXPECT_EQ(kwin().calls().back(), u"unloadScript"_s);
    EXPECT_EQ(frontmost().availability(), Availability::available);
}

TEST_F(KWinFrontmostWindowTest, withoutKWinItIsUnavailable) {
    watch();
    EXPECT_TRUE(becomes(Availability::unavailable));
    EXPECT_EQ(frontmost().current(), std::nullopt);
}

using KWinFrontmostWindowWithoutBus = Desktop;

TEST_F(KWinFrontmostWindowWithoutBus, itIsUnavailable) {
    KWinFrontmostWindow frontmost;
    EXPECT_EQ(frontmost.availability(), Availability::unavailable);
    frontmost.beginWatching();
    EXPECT_EQ(frontmost.inFront(), InFront());
    frontmost.endWatching();
}

} // namespace
} // namespace brisklog::test
