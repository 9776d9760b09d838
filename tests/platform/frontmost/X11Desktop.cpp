#include "X11Desktop.h"

#include <QElapsedTimer>
#include <fstream>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

constexpr std::uint8_t bitsOfNumber = 32;
constexpr std::uint8_t bitsOfByte = 8;

void end(QProcess& process) {
    process.kill();
    process.waitForFinished(patience);
}

} // namespace

void X11Desktop::SetUp() {
    m_server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-screen"_s, u"0"_s,
                               u"800x600x24"_s});
    if (!m_server.waitForStarted(patience) || !waitUntil([this] { return m_server.canReadLine(); }))
        GTEST_SKIP() << "no X server: " << m_server.errorString().toStdString();
    qputenv("DISPLAY", ":" + m_server.readLine().trimmed());
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("XDG_SESSION_TYPE");
    qputenv("XDG_DATA_DIRS", (home.path() / "system").c_str());
    qputenv("XDG_DATA_HOME", (home.path() / "own").c_str());
}

void X11Desktop::TearDown() {
    for (const auto& program : m_programs)
        end(*program);
    end(m_windowManager);
    end(m_server);
}

void X11Desktop::startWindowManager() {
    // It needs a theme that is installed on the machine.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_DIRS"_s, u"/usr/local/share:/usr/share"_s);
    m_windowManager.setProcessEnvironment(environment);
    m_windowManager.start(u"openbox"_s, {u"--sm-disable"_s});
    ASSERT_TRUE(m_windowManager.waitForStarted(patience)) << "openbox is missing";
}

void X11Desktop::endWindowManager() {
    m_windowManager.terminate();
    m_windowManager.waitForFinished(patience);
}

void X11Desktop::start(const QString& program, const QStringList& arguments) {
    m_programs.push_back(std::make_unique<QProcess>());
    m_programs.back()->start(program, arguments);
    ASSERT_TRUE(m_programs.back()->waitForStarted(patience)) << program.toStdString() << " is missing";
}

bool X11Desktop::bringToFront(const QString& windowClass) {
    return QProcess::execute(u"xdotool"_s, {u"search"_s, u"--sync"_s, u"--onlyvisible"_s, u"--class"_s,
                                            u'^' + windowClass + u'$', u"windowactivate"_s, u"--sync"_s}) ==
           0;
}

void X11Desktop::install(const std::string& id, const std::string& lines) {
    const auto folder = home.path() / "own" / "applications";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / (id + ".desktop")) << "[Desktop Entry]\nType=Application\n" << lines << '\n';
}

TestWindow::TestWindow() : m_window(xcb_generate_id(m_server.raw())) {
    constexpr std::uint16_t side = 100;
    xcb_create_window(m_server.raw(), XCB_COPY_FROM_PARENT, m_window, m_server.root(), 0, 0, side, side, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
}

void TestWindow::setClass(const std::string& instance, const std::string& windowClass) {
    const std::string value = instance + '\0' + windowClass + '\0';
    xcb_change_property(m_server.raw(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                        bitsOfByte, static_cast<std::uint32_t>(value.size()), value.data());
    xcb_flush(m_server.raw());
}

void TestWindow::setMachine(const std::string& name) {
    xcb_change_property(m_server.raw(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLIENT_MACHINE,
                        XCB_ATOM_STRING, bitsOfByte, static_cast<std::uint32_t>(name.size()), name.data());
    xcb_flush(m_server.raw());
}

void TestWindow::setNumbers(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& values) {
    xcb_change_property(m_server.raw(), XCB_PROP_MODE_REPLACE, m_window, m_server.atom(property), type,
                        bitsOfNumber, static_cast<std::uint32_t>(values.size()), values.data());
    xcb_flush(m_server.raw());
}

void TestWindow::setText(const char* property, const std::string& text) {
    xcb_change_property(m_server.raw(), XCB_PROP_MODE_REPLACE, m_window, m_server.atom(property),
                        m_server.atom("UTF8_STRING"), bitsOfByte, static_cast<std::uint32_t>(text.size()),
                        text.data());
    xcb_flush(m_server.raw());
}

void TestWindow::setAtoms(const char* property, const std::vector<const char*>& names) {
    std::vector<std::uint32_t> atoms;
    for (const char* const name : names)
        atoms.push_back(m_server.atom(name));
    setNumbers(property, XCB_ATOM_ATOM, atoms);
}

void TestWindow::show() {
    // A window manager that has only just started misses the first request; too many keep a slow one busy.
    constexpr int between = 500;
    QElapsedTimer sinceAsked;
    EXPECT_TRUE(waitUntil([&] {
        if (isActive())
            return true;
        if (!sinceAsked.isValid() || sinceAsked.elapsed() > between) {
            sinceAsked.start();
            askToBeActive();
        }
        return false;
    }));
}

void TestWindow::askToBeActive() {
    xcb_map_window(m_server.raw(), m_window);
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = bitsOfNumber;
    request.window = m_window;
    request.type = m_server.atom("_NET_ACTIVE_WINDOW");
    // Asks as a pager would: a request from an application is subject to focus stealing prevention.
    request.data.data32[0] = 2;
    xcb_send_event(m_server.raw(), 0, m_server.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&request));
    xcb_flush(m_server.raw());
}

bool TestWindow::isActive() const {
    const auto active =
        m_server.numbers(m_server.askFor(m_server.root(), m_server.atom("_NET_ACTIVE_WINDOW")));
    return active && !active->empty() && active->front() == m_window;
}

} // namespace brisklog::test
