#include "WaylandDesktop.h"
#include "platform/qt/FrontmostApplicationChoice.h"
#include "platform/qt/KWinFrontmostApplication.h"

#include <QElapsedTimer>
#include <csignal>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

const QString scriptName = u"example.brisklog.Brisklog.frontmost"_s;

DesktopApplication application(const std::string& name, const std::string& identifier) {
    return {.localizedName = name, .bundleIdentifier = identifier};
}

/// The real window manager of KDE.
class KWinTest : public WaylandDesktop {
protected:
    void SetUp() override {
        WaylandDesktop::SetUp();
        startKWin();
        if (IsSkipped() || HasFatalFailure())
            return;
        m_frontmost = std::make_unique<KWinFrontmostApplication>(bus());
        ASSERT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::available; }));
    }

    void TearDown() override {
        end();
        WaylandDesktop::TearDown();
    }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    void end() { m_frontmost.reset(); }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return waitUntil(
            [&] { return frontmost().current() == expected && frontmost().current() == expected; });
    }

private:
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(KWinTest, namesTheProgramWhoseWindowIsInFront) {
    install("org.example.Editor", "Name=Editor\nName[de]=Schreibprogramm");
    install("browser-of-mine", "Name=Browser\nStartupWMClass=Browser");
    install("org.example.Window", "Name=Fenster\nExec=test-window %U");
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startWindow(u"org.example.Editor"_s);
    EXPECT_TRUE(becomes(application("Schreibprogramm", "org.example.Editor")));
    startWindow(u"browser"_s);
    EXPECT_TRUE(becomes(application("Browser", "browser-of-mine")));
    startWindow(u"other"_s);
    EXPECT_TRUE(becomes(application("Fenster", "org.example.Window"))) << "recognised by its process";

    bringToFrontOnKWin(u"org.example.Editor"_s);
    EXPECT_TRUE(becomes(application("Schreibprogramm", "org.example.Editor")));
    bringToFrontOnKWin(u"browser"_s);
    EXPECT_TRUE(becomes(application("Browser", "browser-of-mine")));
}

TEST_F(KWinTest, afterTheLastWindowNothingIsInFront) {
    frontmost().beginWatching();
    QProcess& one = startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    QProcess& two = startWindow(u"two"_s);
    EXPECT_TRUE(becomes(application("two", "two")));
    two.kill();
    EXPECT_TRUE(becomes(application("one", "one")));
    one.kill();
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(KWinTest, theScriptIsThereOnlyWhileWatching) {
    startWindow(u"one"_s);
    EXPECT_FALSE(isLoadedInKWin(scriptName));
    for (int times = 0; times < 3; ++times) {
        frontmost().beginWatching();
        EXPECT_TRUE(becomes(application("one", "one")));
        EXPECT_TRUE(isLoadedInKWin(scriptName));
        frontmost().endWatching();
        EXPECT_EQ(frontmost().current(), std::nullopt);
        EXPECT_TRUE(waitUntil([this] { return !isLoadedInKWin(scriptName); }));
    }
    frontmost().beginWatching();
    end();
    EXPECT_TRUE(waitUntil([this] { return !isLoadedInKWin(scriptName); }));
}

TEST_F(KWinTest, switchingBackAndForthEndsWithTheLastWish) {
    startWindow(u"one"_s);
    for (int times = 0; times < 10; ++times) {
        frontmost().beginWatching();
        frontmost().endWatching();
    }
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one", "one")));
}

TEST_F(KWinTest, aScriptLeftBehindIsReplaced) {
    startWindow(u"one"_s);
    loadIntoKWin(scriptName, u"var left = 1;"_s);
    EXPECT_TRUE(isLoadedInKWin(scriptName));
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one", "one")));
}

TEST_F(KWinTest, theScriptRunsThoughItsNumberIsTaken) {
    startWindow(u"one"_s);
    loadIntoKWin(u"first"_s, u"var first = 1;"_s);
    loadIntoKWin(u"second"_s, u"var second = 2;"_s);
    // KWin counts the scripts it has to number the next one.
    unloadFromKWin(u"first"_s);
    frontmost().beginWatching();
    EXPECT_TRUE(becomes(application("one", "one")));
    EXPECT_EQ(frontmost().availability(), Availability::available);
}

TEST_F(KWinTest, isUnavailableWhenItEnds) {
    frontmost().beginWatching();
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one", "one")));
    endCompositor();
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::unavailable; }));
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(KWinTest, keepsNobodyWaitingWhenItHangs) {
    frontmost().beginWatching();
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
    const KWinFrontmostApplication other(bus());
    EXPECT_EQ(other.availability(), Availability::beingFoundOut);
    EXPECT_LT(elapsed.elapsed(), soon);
    ASSERT_EQ(::kill(static_cast<pid_t>(compositorProcess()), SIGCONT), 0);
    EXPECT_TRUE(becomes(application("one", "one")));
}

TEST_F(KWinTest, isChosenWhereItAnswers) {
    const auto chosen = chooseFrontmostApplication();
    chosen->beginWatching();
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
    startWindow(u"one"_s);
    EXPECT_TRUE(waitUntil([&] { return chosen->current() == application("one", "one"); }));
}

} // namespace
} // namespace brisklog::test
