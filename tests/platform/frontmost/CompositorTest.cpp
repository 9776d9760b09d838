#include "CompositorTest.h"

#include <QElapsedTimer>
#include <csignal>

namespace brisklog::test {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

void CompositorTest::TearDown() {
    stopAsking();
    WaylandDesktop::TearDown();
}

void CompositorTest::ask(const MakeFrontmost& makeFrontmost) {
    m_makeFrontmost = makeFrontmost;
    m_frontmost = makeFrontmost();
    ASSERT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::available; }));
}

void CompositorTest::installPrograms() {
    install("org.example.Editor", "Name=Editor\nName[de]=Schreibprogramm");
    install("browser-of-mine", "Name=Browser\nStartupWMClass=Browser");
}

void CompositorTest::expectProgramsByTheirEntries(
    const std::function<void(const QString& id)>& bringToFront) {
    for (const auto& [id, expected] :
         {std::pair{u"org.example.Editor"_s, application("Schreibprogramm", "org.example.Editor")},
          {u"browser"_s, application("Browser", "browser-of-mine")}}) {
        bringToFront(id);
        EXPECT_TRUE(becomes(expected));
    }
}

void CompositorTest::expectTheDesktopAfterTheLastWindow() {
    QProcess& one = startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    QProcess& two = startWindow(u"two"_s);
    EXPECT_TRUE(becomes(application("two")));
    two.kill();
    EXPECT_TRUE(becomes(application("one")));
    one.kill();
    EXPECT_TRUE(becomes(bareDesktop));
    startWindow(u"three"_s);
    EXPECT_TRUE(becomes(application("three")));
}

void CompositorTest::expectUnavailableOnceItEnds() {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    endCompositor();
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::unavailable; }));
    EXPECT_TRUE(becomes(std::nullopt));
}

void CompositorTest::expectNobodyWaitsWhileItHangs() {
    startWindow(u"one"_s);
    EXPECT_TRUE(becomes(application("one")));
    ASSERT_EQ(::kill(static_cast<pid_t>(compositorProcess()), SIGSTOP), 0);
    constexpr int soon = 1000;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(frontmost().current(), application("one"));
    frontmost().endWatching();
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    const auto other = m_makeFrontmost();
    EXPECT_EQ(other->availability(), Availability::notYetKnown);
    EXPECT_LT(elapsed.elapsed(), soon);
    ASSERT_EQ(::kill(static_cast<pid_t>(compositorProcess()), SIGCONT), 0);
    EXPECT_TRUE(becomes(application("one")));
}

} // namespace brisklog::test
