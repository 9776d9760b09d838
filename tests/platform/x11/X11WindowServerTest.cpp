#include "platform/x11/X11WindowServer.h"

#include "platform/frontmost/X11Desktop.h"

#include <cstring>
#include <gmock/gmock.h>
#include <optional>
#include <string>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

/// Plays the tray: owns the selection by which programs find it, and announces itself.
class TestTray {
public:
    TestTray() : m_window(xcb_generate_id(m_server.raw())) {
        xcb_create_window(m_server.raw(), XCB_COPY_FROM_PARENT, m_window, m_server.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_server.raw(), m_window, m_selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_server.root();
        message.type = m_server.atom("MANAGER");
        message.data.data32[1] = m_selection;
        message.data.data32[2] = m_window;
        xcb_send_event(m_server.raw(), 0, m_server.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(m_server.raw());
    }

private:
    X11Connection m_server;
    xcb_window_t m_window;
    xcb_atom_t m_selection = m_server.atom("_NET_SYSTEM_TRAY_S0");
};

class X11WindowServerTest : public X11Desktop {
protected:
    void SetUp() override {
        X11Desktop::SetUp();
        if (!IsSkipped())
            m_server.emplace();
    }

    void TearDown() override {
        m_server.reset();
        X11Desktop::TearDown();
    }

    X11WindowServer& server() { return *m_server; }

    /// Presses and releases a button outside all windows.
    static void press() { ASSERT_EQ(QProcess::execute(u"xdotool"_s, {u"click"_s, u"1"_s}), 0); }

private:
    std::optional<X11WindowServer> m_server;
};

TEST_F(X11WindowServerTest, tellsOfATrayThatComesAndKnowsWhetherItIsThere) {
    int trays = 0;
    const auto watch = server().watchTrays([&trays] { ++trays; });
    EXPECT_FALSE(server().hasTray());
    {
        const TestTray tray;
        EXPECT_TRUE(waitUntil([&trays] { return trays == 1; }));
        EXPECT_TRUE(server().hasTray());
    }
    EXPECT_TRUE(waitUntil([this] { return !server().hasTray(); }));
}

TEST_F(X11WindowServerTest, tellsOfPressesWhileTheyAreWatched) {
    int presses = 0;
    auto watch = server().watchPointer([&presses] { ++presses; });
    press();
    EXPECT_TRUE(waitUntil([&presses] { return presses == 1; }));
    watch = {};
    press();
    auto second = server().watchPointer([&presses] { presses += 10; });
    press();
    EXPECT_TRUE(waitUntil([&presses] { return presses > 1; }));
    EXPECT_EQ(presses, 11);
}

TEST_F(X11WindowServerTest, theWatchMayEndInTheMidstOfAPress) {
    int presses = 0;
    Subscription watch;
    watch = server().watchPointer([&presses, &watch] {
        watch = {};
        ++presses;
    });
    press();
    EXPECT_TRUE(waitUntil([&presses] { return presses == 1; }));
}

TEST_F(X11WindowServerTest, keepsAWindowOutOfTaskBarAndPager) {
    const TestWindow window;
    // Once this is answered, the server has the window.
    EXPECT_FALSE(window.isActive());
    server().keepOutOfTaskBar(window.id());
    const X11Connection connection;
    const auto states = connection.numbers(connection.askFor(window.id(), connection.atom("_NET_WM_STATE")));
    ASSERT_TRUE(states);
    EXPECT_THAT(*states, testing::UnorderedElementsAre(connection.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                                                       connection.atom("_NET_WM_STATE_SKIP_PAGER")));
}

/// What programs broadcast about starts and activations, as everyone receives it.
class BroadcastListener {
public:
    BroadcastListener() {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_server.raw(), m_server.root(), XCB_CW_EVENT_MASK, &mask);
        // Once this is answered, the server knows.
        static_cast<void>(m_server.atom("_NET_STARTUP_INFO"));
    }

    /// The text put together so far; parts that begin a message are marked with a "|".
    const std::string& text() {
        while (const auto event = owned(xcb_poll_for_event(m_server.raw())))
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE)
                take(reinterpret_cast<const xcb_client_message_event_t&>(*event));
        return m_text;
    }

private:
    void take(const xcb_client_message_event_t& part) {
        if (part.type == m_server.atom("_NET_STARTUP_INFO_BEGIN"))
            m_text += '|';
        const auto* const letters = reinterpret_cast<const char*>(part.data.data8);
        m_text += std::string(letters, ::strnlen(letters, sizeof(part.data)));
    }

    X11Connection m_server;
    std::string m_text;
};

TEST_F(X11WindowServerTest, tellsEveryoneThatAnActivationIsComplete) {
    BroadcastListener everyone;
    server().completeActivation(R"(gnome-shell/Brisklog "7"\0_TIME4711)");
    const std::string message = R"(|remove: ID="gnome-shell/Brisklog \"7\"\\0_TIME4711")";
    EXPECT_TRUE(waitUntil([&] { return everyone.text() == message; })) << everyone.text();
}

TEST_F(X11WindowServerTest, knowsThePointerUnlessACompositorHasIt) {
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_TRUE(server().knowsPointer());
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_FALSE(server().knowsPointer());
}

using WithoutX11Server = Desktop;

TEST_F(WithoutX11Server, nothingIsToldAndNothingHappens) {
    qputenv("DISPLAY", ":12345");
    X11WindowServer server;
    const auto pointer = server.watchPointer([] {});
    const auto trays = server.watchTrays([] {});
    EXPECT_FALSE(server.hasTray());
    EXPECT_FALSE(server.knowsPointer());
    server.completeActivation("token");
    server.keepOutOfTaskBar(1);
}

} // namespace
} // namespace brisklog::test
