#include "platform/frontmost/X11FrontmostWindow.h"
#include "FrontmostExpectations.h"
#include "X11Desktop.h"
#include "platform/frontmost/ApplicationIcons.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"

#include <QElapsedTimer>
#include <QImage>
#include <QSysInfo>
#include <gmock/gmock.h>
#include <unistd.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

/// An X desktop with a real window manager.
class X11FrontmostWindowTest : public X11Desktop {
protected:
    void SetUp() override {
        X11Desktop::SetUp();
        if (!IsSkipped())
            startWindowManager();
    }

    void TearDown() override {
        m_frontmost.reset();
        X11Desktop::TearDown();
    }

    FrontmostApplication& frontmost() {
        if (!m_frontmost)
            watch();
        return *m_frontmost;
    }

    [[nodiscard]] bool becomes(const DesktopApplication& expected) {
        return becomesFrontmost(frontmost(), expected);
    }

    static std::unique_ptr<TestWindow> ownWindow() {
        auto window = std::make_unique<TestWindow>();
        window->setClass("own", "Own");
        window->setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, {ownWindows.process});
        window->setMachine(QSysInfo::machineHostName().toStdString());
        return window;
    }

private:
    void watch() {
        m_frontmost = applicationsBy<X11FrontmostWindow>();
        EXPECT_TRUE(waitUntil([this] { return m_frontmost->availability() == Availability::available; }));
        m_frontmost->beginWatching();
    }

    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(X11FrontmostWindowTest, namesTheProgramWhoseWindowIsInFront) {
    install("org.example.viewres", "Name=Resources\nName[de]=Betriebsmittel\nExec=/usr/bin/viewres %f");
    install("font-chooser", "Name=Fonts\nName[de]=Schriften\nStartupWMClass=XFontSel");
    start(u"xfontsel"_s);
    start(u"viewres"_s);
    start(u"xfd"_s, {u"-fn"_s, u"fixed"_s});
    (void)frontmost();

    ASSERT_TRUE(bringToFront(u"viewres"_s));
    EXPECT_TRUE(becomes(application("Betriebsmittel", "org.example.viewres")));
    ASSERT_TRUE(bringToFront(u"xfontsel"_s));
    EXPECT_TRUE(becomes(application("Schriften", "font-chooser")));
    ASSERT_TRUE(bringToFront(u"xfd"_s));
    EXPECT_TRUE(becomes(application("Xfd")));
    ASSERT_TRUE(bringToFront(u"viewres"_s));
    EXPECT_TRUE(becomes(application("Betriebsmittel", "org.example.viewres")));
}

TEST_F(X11FrontmostWindowTest, recognizesAProgramWithoutClassByItsFile) {
    (void)frontmost();
    install("editor", "Name=Editor\nExec=env A=b \"" +
                          std::filesystem::read_symlink("/proc/self/exe").string() + "\" %U");
    TestWindow window;
    window.setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    window.setMachine(QSysInfo::machineHostName().toStdString());
    window.show();
    EXPECT_EQ(frontmost().current(), application("Editor", "editor"));
}

TEST_F(X11FrontmostWindowTest, windowWithoutClassAndProgramHasNeitherNameNorIdentifier) {
    (void)frontmost();
    TestWindow window;
    window.show();
    EXPECT_TRUE(becomes(DesktopApplication{}));
}

TEST_F(X11FrontmostWindowTest, applicationIdCountsBeforeTheClass) {
    (void)frontmost();
    install("org.example.Pages", "Name=Seiten");
    install("shell", "Name=Hülle");
    TestWindow window;
    window.setClass("shell", "Shell");
    window.setText("_GTK_APPLICATION_ID", "org.example.Pages");
    window.show();
    EXPECT_EQ(frontmost().current(), application("Seiten", "org.example.Pages"));
}

TEST_F(X11FrontmostWindowTest, controlCharactersInNamesBecomeBlanks) {
    (void)frontmost();
    TestWindow window;
    window.setClass("a", "Two\nLines\x1b[1m");
    window.show();
    EXPECT_EQ(frontmost().current(), application("Two Lines [1m"));
}

TEST_F(X11FrontmostWindowTest, classInLatin1IsRead) {
    (void)frontmost();
    TestWindow window;
    window.setClass("m", "M\xfcller");
    window.show();
    EXPECT_EQ(frontmost().current(), application("Müller"));
}

TEST_F(X11FrontmostWindowTest, newClassOfTheSameWindowIsNoticed) {
    (void)frontmost();
    TestWindow window;
    window.setClass("text", "Text");
    window.show();
    EXPECT_EQ(frontmost().current(), application("Text"));
    window.setClass("table", "Table");
    EXPECT_TRUE(becomes(application("Table")));
}

TEST_F(X11FrontmostWindowTest, anotherProgramUnderTheSameWindowNumberIsNoticed) {
    (void)frontmost();
    auto window = std::make_unique<TestWindow>();
    window->setClass("one", "One");
    window->show();
    EXPECT_EQ(frontmost().current(), application("One"));
    const xcb_window_t number = window->id();
    window.reset();

    // The server reuses the window ids of clients that have ended.
    window = std::make_unique<TestWindow>();
    window->setClass("two", "Two");
    window->show();
    ASSERT_EQ(window->id(), number);
    EXPECT_TRUE(becomes(application("Two")));
}

TEST_F(X11FrontmostWindowTest, gapOfOneQuestionIsBridgedAndTheSecondBelieved) {
    (void)frontmost();
    auto window = std::make_unique<TestWindow>();
    window->setClass("one", "One");
    window->show();
    EXPECT_EQ(frontmost().current(), application("One"));
    const xcb_window_t number = window->id();
    window.reset();
    const X11Connection server;
    ASSERT_TRUE(waitUntil([&] { return !server.bytes(server.askFor(number, XCB_ATOM_WM_CLASS)); }));
    EXPECT_EQ(frontmost().current(), application("One"));
    EXPECT_EQ(frontmost().current(), bareDesktop);
}

TEST_F(X11FrontmostWindowTest, theDesktopsOwnWindowIsTheBareDesktop) {
    (void)frontmost();
    TestWindow window;
    window.setClass("xfdesktop", "Xfdesktop");
    window.setAtoms("_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DESKTOP"});
    window.show();
    EXPECT_EQ(frontmost().current(), bareDesktop);
}

TEST_F(X11FrontmostWindowTest, beginningInTheOnlyWindowWhichIsOurOwnItIsTheBareDesktop) {
    const auto own = ownWindow();
    own->show();
    EXPECT_EQ(frontmost().current(), bareDesktop);
}

TEST_F(X11FrontmostWindowTest, aProcessOnAnotherMachineIsNone) {
    (void)frontmost();
    install("editor",
            "Name=Editor\nExec=\"" + std::filesystem::read_symlink("/proc/self/exe").string() + "\"");
    TestWindow window;
    window.setClass("remote", "Remote");
    window.setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    window.setMachine("another-machine");
    window.show();
    EXPECT_EQ(frontmost().current(), application("Remote"));
}

TEST_F(X11FrontmostWindowTest, aServerThatAnotherProgramKeepsToItselfKeepsNobodyWaiting) {
    (void)frontmost();
    TestWindow window;
    window.setClass("one", "One");
    window.show();
    EXPECT_TRUE(becomes(application("One")));
    const X11Connection hung;
    xcb_grab_server(hung.raw());
    (void)hung.atom("the server has processed it");
    QElapsedTimer elapsed;
    elapsed.start();
    for (int times = 0; times < 3; ++times)
        EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_LT(elapsed.elapsed(), 1000);
    xcb_ungrab_server(hung.raw());
    xcb_flush(hung.raw());
    EXPECT_TRUE(becomes(application("One")));
}

TEST_F(X11FrontmostWindowTest, windowsThatVanishWhileBeingAskedDoNoHarm) {
    (void)frontmost();
    TestWindow stays;
    stays.setClass("stays", "Stays");
    stays.show();
    constexpr int many = 30;
    for (int count = 0; count < many; ++count) {
        TestWindow vanishes;
        vanishes.setClass("vanishes", "Vanishes");
        vanishes.askToBeActive();
        (void)frontmost().current();
        if (const auto seen = frontmost().current(); seen && *seen != application("Stays")) {
            ASSERT_EQ(seen, application("Vanishes"));
        }
    }
    stays.askToBeActive();
    EXPECT_TRUE(becomes(application("Stays")));
}

TEST_F(X11FrontmostWindowTest, whileAnOwnWindowIsInFrontItIsTheApplicationBeforeIt) {
    (void)frontmost();
    TestWindow one;
    one.setClass("one", "One");
    one.show();
    EXPECT_TRUE(becomes(application("One")));
    const auto own = ownWindow();
    own->show();
    EXPECT_TRUE(becomes(application("One")));
}

TEST_F(X11FrontmostWindowTest, beginningInAnOwnWindowItIsTheUppermostOfTheOthersThatAreInUse) {
    std::vector<std::unique_ptr<TestWindow>> others;
    for (const char* const name : {"Below", "Uppermost", "Minimized", "Widget"}) {
        others.push_back(std::make_unique<TestWindow>());
        others.back()->setClass(name, name);
        if (name == std::string_view("Widget"))
            others.back()->setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_SKIP_TASKBAR"});
        others.back()->show();
    }
    ASSERT_EQ(
        QProcess::execute(u"xdotool"_s, {u"windowminimize"_s, u"--sync"_s, QString::number(others[2]->id())}),
        0);
    const auto own = ownWindow();
    own->show();
    EXPECT_EQ(frontmost().current(), application("Uppermost"));
    others.clear();
}

TEST_F(X11FrontmostWindowTest, unwatchedNothingIsInFront) {
    TestWindow window;
    window.setClass("one", "One");
    (void)frontmost();
    window.show();
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    frontmost().beginWatching();
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), application("One"));
}

TEST_F(X11FrontmostWindowTest, iconComesFromTheDesktopEntry) {
    (void)frontmost();
    QImage picture(64, 64, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    const auto file = home.path() / "red.png";
    ASSERT_TRUE(picture.save(QString::fromStdString(file.string())));
    install("drawing", "Name=Zeichnung\nIcon=" + file.string());
    TestWindow window;
    window.setClass("drawing", "Drawing");
    window.show();
    const auto png = frontmost().iconPng(frontmost().current().value());
    const QImage icon = QImage::fromData(QByteArray::fromStdString(png.value()), "PNG");
    EXPECT_EQ(icon.size(), QSize(32, 32));
    EXPECT_EQ(icon.pixelColor(16, 16), QColor(Qt::red));
}

TEST_F(X11FrontmostWindowTest, iconWithoutEntryIsTheWindows) {
    (void)frontmost();
    constexpr std::uint32_t blue = 0xFF0000FF;
    constexpr std::uint32_t small = 16;
    constexpr std::uint32_t large = 48;
    std::vector<std::uint32_t> icons{small, small};
    icons.resize(2 + small * small, 0xFFFF0000);
    icons.insert(icons.end(), {large, large});
    icons.resize(icons.size() + std::size_t{large} * large, blue);
    TestWindow window;
    window.setClass("own", "Own");
    window.setNumbers("_NET_WM_ICON", XCB_ATOM_CARDINAL, icons);
    window.show();
    const auto png = frontmost().iconPng(frontmost().current().value());
    const QImage icon = QImage::fromData(QByteArray::fromStdString(png.value()), "PNG");
    EXPECT_EQ(icon.size(), QSize(32, 32));
    EXPECT_EQ(icon.pixelColor(16, 16), QColor(Qt::blue));
}

TEST(ApplicationIcons, brokenIconOfAWindowIsNone) {
    using Icons = std::vector<std::uint32_t>;
    for (const Icons& broken : {Icons{}, {16}, {0, 0, 1, 2}, {32, 32, 7}, {0xFFFFFFFF, 0xFFFFFFFF, 7}})
        EXPECT_EQ(iconPng(broken), std::nullopt);
}

TEST_F(X11FrontmostWindowTest, desktopWithXAloneIsAskedInTheX11Way) {
    TestWindow window;
    window.setClass("one", "One");
    const auto chosen = chooseFrontmostApplication(ownWindows);
    chosen->beginWatching();
    ASSERT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
    window.show();
    EXPECT_EQ(chosen->current(), application("One"));
}

using X11WithoutWindowManager = X11Desktop;

TEST_F(X11WithoutWindowManager, isUnavailableUntilAWindowManagerComesAndWhenItGoes) {
    const auto made = applicationsBy<X11FrontmostWindow>();
    FrontmostApplication& frontmost = *made;
    int announcements = 0;
    const auto subscription = frontmost.observe([&] { ++announcements; });
    EXPECT_EQ(frontmost.availability(), Availability::unavailable);
    startWindowManager();
    EXPECT_TRUE(waitUntil([&] { return frontmost.availability() == Availability::available; }));
    EXPECT_EQ(announcements, 1);
    frontmost.beginWatching();
    TestWindow window;
    window.setClass("one", "One");
    window.show();
    EXPECT_EQ(frontmost.current(), application("One"));

    endWindowManager();
    EXPECT_TRUE(waitUntil([&] { return frontmost.availability() == Availability::unavailable; }));
    EXPECT_EQ(announcements, 2);
    (void)frontmost.current();
    EXPECT_EQ(frontmost.current(), std::nullopt);
    startWindowManager();
    EXPECT_TRUE(waitUntil([&] { return frontmost.availability() == Availability::available; }));
}

TEST_F(X11WithoutWindowManager, underWaylandTheX11WayIsNeverTaken) {
    qputenv("WAYLAND_DISPLAY", "no-such-compositor");
    startWindowManager();
    const X11FrontmostWindow answersHere;
    ASSERT_TRUE(waitUntil([&] { return answersHere.availability() == Availability::available; }));
    const auto chosen = chooseFrontmostApplication(ownWindows);
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() != Availability::notYetKnown; }));
    EXPECT_EQ(chosen->availability(), Availability::unavailable);
    qunsetenv("WAYLAND_DISPLAY");
}

} // namespace
} // namespace brisklog::test
