#include "CompositorTest.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"
#include "platform/frontmost/KWinFrontmostWindow.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

const QString scriptName = u"example.brisklog.Brisklog.frontmost"_s;

/// KDE's real window manager.
class KWinTest : public CompositorTest {
protected:
    void SetUp() override {
        CompositorTest::SetUp();
        startKWin();
        if (!IsSkipped() && !HasFatalFailure())
            ask([this] { return applicationsBy<KWinFrontmostWindow>(bus()); });
    }
};

TEST_F(KWinTest, namesTheProgramWhoseWindowIsInFront) {
    installPrograms();
    install("org.example.Window", "Name=Fenster\nExec=test-window %U");
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    expectProgramsByTheirEntries([this](const QString& id) { startWindow(id); });
    startWindow(u"other"_s);
    EXPECT_TRUE(becomes(application("Fenster", "org.example.Window"))) << "recognised by its process";
    expectProgramsByTheirEntries([this](const QString& id) { bringToFrontOnKWin(id); });
}

TEST_F(KWinTest, afterTheLastWindowTheDesktopIsInFront) {
    frontmost().beginWatching();
    expectTheDesktopAfterTheLastWindow();
}

TEST_F(KWinTest, whileAnOwnWindowIsInFrontItIsTheApplicationBeforeIt) {
    frontmost().beginWatching();
    startWindow(u"other"_s);
    EXPECT_TRUE(becomes(application("other")));
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    const auto process = startWindow(u"own"_s).processId();
    EXPECT_TRUE(becomes(application("own")));
    stopAsking();
    ask([this, process] {
        const OwnWindows own{.process = static_cast<std::uint32_t>(process), .names = {}};
        return std::make_unique<DesktopFrontmostApplication>(std::make_unique<KWinFrontmostWindow>(bus()),
                                                             std::make_unique<FakeUserPresence>(), own);
    });
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one"))) << "it was there before the watching began";
    bringToFrontOnKWin(u"other"_s);
    EXPECT_TRUE(becomes(application("other")));
    bringToFrontOnKWin(u"own"_s);
    EXPECT_TRUE(becomes(application("other")));
}

TEST_F(KWinTest, theScriptIsThereOnlyWhileWatching) {
    startWindow(u"one"_s);
    EXPECT_FALSE(isLoadedInKWin(scriptName));
    for (int times = 0; times < 3; ++times) {
        frontmost().beginWatching();
        EXPECT_TRUE(becomes(application("one")));
        EXPECT_TRUE(isLoadedInKWin(scriptName));
        frontmost().endWatching();
        EXPECT_EQ(frontmost().current(), std::nullopt);
        EXPECT_TRUE(waitUntil([this] { return !isLoadedInKWin(scriptName); }));
    }
    frontmost().beginWatching();
    stopAsking();
    EXPECT_TRUE(waitUntil([this] { return !isLoadedInKWin(scriptName); }));
}

TEST_F(KWinTest, switchingBackAndForthEndsWithTheLastWish) {
    startWindow(u"one"_s);
    for (int times = 0; times < 10; ++times) {
        frontmost().beginWatching();
        frontmost().endWatching();
    }
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one")));
}

TEST_F(KWinTest, aScriptLeftBehindIsReplaced) {
    startWindow(u"one"_s);
    loadIntoKWin(scriptName, u"var left = 1;"_s);
    EXPECT_TRUE(isLoadedInKWin(scriptName));
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one")));
}

TEST_F(KWinTest, theScriptRunsThoughItsNumberIsTaken) {
    startWindow(u"one"_s);
    loadIntoKWin(u"first"_s, u"var first = 1;"_s);
    loadIntoKWin(u"second"_s, u"var second = 2;"_s);
    // KWin numbers a new script by how many are loaded.
    unloadFromKWin(u"first"_s);
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one")));
    EXPECT_EQ(frontmost().availability(), Availability::available);
}

TEST_F(KWinTest, isUnavailableWhenItEnds) {
    frontmost().beginWatching();
    expectUnavailableOnceItEnds();
}

TEST_F(KWinTest, keepsNobodyWaitingWhenItHangs) {
    frontmost().beginWatching();
    expectNobodyWaitsWhileItHangs();
}

TEST_F(KWinTest, isChosenWhereItAnswers) {
    const auto chosen = chooseFrontmostApplication(ownWindows);
    chosen->beginWatching();
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
    startWindow(u"one"_s);
    EXPECT_TRUE(waitUntil([&] { return chosen->current() == application("one"); }));
}

} // namespace
} // namespace brisklog::test
