#include "WaylandDesktop.h"
#include "platform/qt/FrontmostApplicationChoice.h"
#include "platform/qt/WlrootsFrontmostApplication.h"

#include <QElapsedTimer>
#include <csignal>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

DesktopApplication application(const std::string& name, const std::string& identifier) {
    return {.localizedName = name, .bundleIdentifier = identifier};
}

/// The real compositor, asked in the way that was chosen for it.
class SwayTest : public WaylandDesktop {
protected:
    void SetUp() override {
        WaylandDesktop::SetUp();
        startSway();
        if (IsSkipped() || HasFatalFailure())
            return;
        m_frontmost = chooseFrontmostApplication();
        ASSERT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::available; }));
        frontmost().beginWatching();
    }

    void TearDown() override {
        m_frontmost.reset();
        WaylandDesktop::TearDown();
    }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return waitUntil(
            [&] { return frontmost().current() == expected && frontmost().current() == expected; });
    }

private:
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(SwayTest, namesTheProgramWhoseWindowIsInFront) {
    install("org.example.Editor", "Name=Editor\nName[de]=Schreibprogramm");
    install("browser-of-mine", "Name=Browser\nStartupWMClass=Browser");
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startWindow(u"org.example.Editor"_s);
    EXPECT_TRUE(becomes(application("Schreibprogramm", "org.example.Editor")));
    startWindow(u"browser"_s);
    EXPECT_TRUE(becomes(application("Browser", "browser-of-mine")));
    startWindow(u"other"_s);
    EXPECT_TRUE(becomes(application("other", "other")));

    bringToFrontOnSway(u"org.example.Editor"_s);
    EXPECT_TRUE(becomes(application("Schreibprogramm", "org.example.Editor")));
    bringToFrontOnSway(u"browser"_s);
    EXPECT_TRUE(becomes(application("Browser", "browser-of-mine")));
}

TEST_F(SwayTest, watchingBeginsWithWhatIsInFrontAlready) {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startWindow(u"two"_s);
    bringToFrontOnSway(u"two"_s);
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("two", "two")));
}

TEST_F(SwayTest, afterTheLastWindowNothingIsInFront) {
    QProcess& one = startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    QProcess& two = startWindow(u"two"_s);
    EXPECT_TRUE(becomes(application("two", "two")));
    two.kill();
    EXPECT_TRUE(becomes(application("one", "one")));
    one.kill();
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(SwayTest, aProgramOnItsXServerIsNamedByItsClass) {
    install("drawing", "Name=Zeichnung\nStartupWMClass=Drawing");
    if (!startXWindow(u"Drawing"_s))
        GTEST_SKIP() << "sway has no X server here";
    EXPECT_TRUE(becomes(application("Zeichnung", "drawing")));
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
}

TEST_F(SwayTest, aCompositorThatEndsIsUnavailable) {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    endCompositor();
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::unavailable; }));
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(SwayTest, aCompositorThatHangsKeepsNobodyWaiting) {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    ASSERT_EQ(::kill(static_cast<pid_t>(compositorProcess()), SIGSTOP), 0);
    constexpr int soon = 1000;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(frontmost().current(), application("one", "one"));
    frontmost().endWatching();
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    const auto other = chooseFrontmostApplication();
    EXPECT_EQ(other->availability(), Availability::beingFoundOut);
    EXPECT_LT(elapsed.elapsed(), soon);
    ASSERT_EQ(::kill(static_cast<pid_t>(compositorProcess()), SIGCONT), 0);
    EXPECT_TRUE(becomes(application("one", "one")));
}

} // namespace
} // namespace brisklog::test
