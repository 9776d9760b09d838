#include "CompositorTest.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

/// The real compositor, asked through the implementation that the program chooses for it.
class SwayTest : public CompositorTest {
protected:
    void SetUp() override {
        CompositorTest::SetUp();
        startSway();
        if (IsSkipped() || HasFatalFailure())
            return;
        ask([] { return chooseFrontmostApplication(ownWindows); });
        if (!HasFatalFailure())
            frontmost().beginWatching();
    }
};

TEST_F(SwayTest, namesTheProgramWhoseWindowIsInFront) {
    installPrograms();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    expectProgramsByTheirEntries([this](const QString& id) { startWindow(id); });
    startWindow(u"other"_s);
    EXPECT_TRUE(becomes(application("other")));
    expectProgramsByTheirEntries([this](const QString& id) { bringToFrontOnSway(id); });
}

TEST_F(SwayTest, watchingBeginsWithWhatIsInFrontAlready) {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startWindow(u"two"_s);
    bringToFrontOnSway(u"two"_s);
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("two")));
}

TEST_F(SwayTest, afterTheLastWindowTheDesktopIsInFront) { expectTheDesktopAfterTheLastWindow(); }

TEST_F(SwayTest, aProgramOnItsXServerIsNamedByItsClass) {
    install("drawing", "Name=Zeichnung\nStartupWMClass=Drawing");
    if (!startXWindow(u"Drawing"_s))
        GTEST_SKIP() << "sway has no X server here";
    EXPECT_TRUE(becomes(application("Zeichnung", "drawing")));
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
}

TEST_F(SwayTest, whileAnOwnWindowIsInFrontItIsTheApplicationBeforeIt) {
    const auto everyone = chooseFrontmostApplication({});
    everyone->beginWatching();
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    startWindow(u"example.brisklog.Brisklog"_s);
    EXPECT_TRUE(becomesFrontmost(*everyone, application("example.brisklog.Brisklog")));
    EXPECT_TRUE(becomes(application("one")));
}

TEST_F(SwayTest, aConnectionThatIsDroppedIsMadeAnew) {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    dropConnections();
    startWindow(u"two"_s);
    EXPECT_TRUE(becomes(application("two")));
}

TEST_F(SwayTest, aCompositorThatEndsIsUnavailable) { expectUnavailableOnceItEnds(); }

TEST_F(SwayTest, aCompositorThatHangsKeepsNobodyWaiting) { expectNobodyWaitsWhileItHangs(); }

} // namespace
} // namespace brisklog::test
