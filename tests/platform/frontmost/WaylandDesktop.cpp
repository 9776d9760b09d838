#include "WaylandDesktop.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDir>
#include <QStandardPaths>
#include <filesystem>
#include <fstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <wayland-client-core.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

/// The user "nobody": sway refuses to run as root, and in containers tests do run as root.
constexpr int nobody = 65534;

/// A folder that a compositor running as another user can enter too.
QString makeRuntimeFolder() {
    std::string name = fs::temp_directory_path() / "brisklog-wayland-XXXXXX";
    return QString::fromUtf8(::mkdtemp(name.data()));
}

QProcessEnvironment environmentIn(const QString& runtime) {
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* const name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(u"XDG_RUNTIME_DIR"_s, runtime);
    environment.insert(u"HOME"_s, runtime);
    for (const auto* const name : {"CONFIG", "DATA", "CACHE", "STATE"})
        environment.insert(u"XDG_%1_HOME"_s.arg(QString::fromLatin1(name)), runtime);
    return environment;
}

QProcessEnvironment swayEnvironment(const QString& runtime) {
    auto environment = environmentIn(runtime);
    environment.insert(u"WLR_BACKENDS"_s, u"headless"_s);
    environment.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    environment.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    environment.insert(u"LIBSEAT_BACKEND"_s, u"noop"_s);
    return environment;
}

/// Wraps the command so that it runs as sway's user.
QStringList asUserOfSway(const QStringList& command) {
    if (::geteuid() != 0)
        return command;
    return QStringList{u"setpriv"_s, u"--reuid=%1"_s.arg(nobody), u"--regid=%1"_s.arg(nobody),
                       u"--clear-groups"_s} +
           command;
}

bool isInstalled(const QString& program) { return !QStandardPaths::findExecutable(program).isEmpty(); }

} // namespace

void WaylandDesktop::SetUp() {
    DesktopWithBus::SetUp();
    m_runtime = makeRuntimeFolder();
    for (const auto* const name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_TYPE"})
        qunsetenv(name);
    qputenv("XDG_DATA_DIRS", (home.path() / "system").c_str());
    qputenv("XDG_DATA_HOME", (home.path() / "own").c_str());
    const fs::path runtime = std::getenv("XDG_RUNTIME_DIR");
    fs::create_directories(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
}

void WaylandDesktop::TearDown() {
    for (const auto& program : m_programs) {
        program->kill();
        program->waitForFinished(patience);
    }
    endCompositor();
    qunsetenv("WAYLAND_DISPLAY");
    QDir(m_runtime).removeRecursively();
    DesktopWithBus::TearDown();
}

void WaylandDesktop::startSway() {
    if (!isInstalled(u"sway"_s))
        GTEST_SKIP() << "sway is not installed";
    const QString configuration = m_runtime + u"/configuration"_s;
    std::ofstream(configuration.toStdString())
        << "xwayland enable\nexec printenv DISPLAY > " << m_runtime.toStdString() << "/display\n";
    if (::geteuid() == 0) {
        for (const QString& path : {m_runtime, configuration})
            ASSERT_EQ(::chown(path.toUtf8(), nobody, nobody), 0);
    }
    m_compositor.setProcessEnvironment(swayEnvironment(m_runtime));
    const QStringList command = asUserOfSway({u"sway"_s, u"--config"_s, configuration});
    startCompositor(command.first(), command.mid(1));
}

void WaylandDesktop::startKWin() {
    const QString installed = QStandardPaths::findExecutable(u"kwin_wayland"_s);
    if (installed.isEmpty())
        GTEST_SKIP() << "kwin_wayland is not installed";
    // The installed file may demand capabilities that a container cannot grant.
    const fs::path copy = fs::path(m_runtime.toStdString()) / "kwin_wayland";
    fs::copy_file(installed.toStdString(), copy);
    auto environment = environmentIn(m_runtime);
    environment.insert(u"KWIN_COMPOSE"_s, u"Q"_s);
    m_compositor.setProcessEnvironment(environment);
    startCompositor(
        QString::fromStdString(copy.string()),
        {u"--virtual"_s, u"--socket"_s, u"wayland-kwin"_s, u"--no-lockscreen"_s, u"--no-global-shortcuts"_s});
    if (IsSkipped())
        return;
    ASSERT_TRUE(
        waitUntil([this] { return bus().interface()->isServiceRegistered(u"org.kde.KWin"_s).value(); }));
}

void WaylandDesktop::startCompositor(const QString& program, const QStringList& arguments) {
    m_compositor.setProcessChannelMode(QProcess::MergedChannels);
    m_compositor.start(program, arguments);
    const bool isThere = m_compositor.waitForStarted(patience) && waitUntil([this] {
                             return m_compositor.state() == QProcess::NotRunning || isAnswering();
                         });
    if (!isThere || m_compositor.state() == QProcess::NotRunning)
        GTEST_SKIP() << program.toStdString()
                     << " does not start here: " << m_compositor.errorString().toStdString() << '\n'
                     << m_compositor.readAll().toStdString();
}

/// The socket file exists before anything listens on it.
bool WaylandDesktop::isAnswering() const {
    QString socket = fileInRuntime(u"wayland-*.lock"_s);
    socket.chop(u".lock"_s.size());
    auto* const display = wl_display_connect(socket.toUtf8());
    if (display == nullptr)
        return false;
    wl_display_disconnect(display);
    qputenv("WAYLAND_DISPLAY", socket.toUtf8());
    return true;
}

void WaylandDesktop::endCompositor() {
    m_compositor.kill();
    m_compositor.waitForFinished(patience);
}

void WaylandDesktop::dropConnections() {
    int dropped = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        const int number = std::stoi(entry.path().filename().string());
        sockaddr_un address{};
        socklen_t size = sizeof address;
        if (::getpeername(number, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
            address.sun_path == qgetenv("WAYLAND_DISPLAY"))
            dropped += ::shutdown(number, SHUT_RDWR) == 0 ? 1 : 0;
    }
    EXPECT_GT(dropped, 0);
}

QString WaylandDesktop::fileInRuntime(const QString& pattern) const {
    const QStringList files = QDir(m_runtime).entryList({pattern}, QDir::System | QDir::Files);
    return files.isEmpty() ? QString() : m_runtime + u'/' + files.first();
}

QProcess& WaylandDesktop::startWindow(const QString& applicationId) {
    m_programs.push_back(std::make_unique<QProcess>());
    QProcess& program = *m_programs.back();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QStringLiteral(BRISKLOG_TEST_WINDOW), {applicationId});
    EXPECT_TRUE(program.waitForStarted(patience));
    return program;
}

bool WaylandDesktop::startXWindow(const QString& windowClass) {
    std::string display;
    const auto readDisplay = [&] {
        return !!(std::ifstream((m_runtime + u"/display"_s).toStdString()) >> display);
    };
    if (!waitUntil(readDisplay))
        return false;
    // The X server admits only its own user.
    auto environment = environmentIn(m_runtime);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"DISPLAY"_s, QString::fromStdString(display));
    m_programs.push_back(std::make_unique<QProcess>());
    m_programs.back()->setProcessEnvironment(environment);
    m_programs.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QStringList command =
        asUserOfSway({QStringLiteral(BRISKLOG_TEST_WINDOW), u"unused"_s, windowClass});
    m_programs.back()->start(command.first(), command.mid(1));
    return m_programs.back()->waitForStarted(patience);
}

void WaylandDesktop::bringToFrontOnSway(const QString& applicationId) {
    const QString socket = fileInRuntime(u"sway-ipc.*.sock"_s);
    // The window may not be there yet.
    EXPECT_TRUE(waitUntil([&] {
        QProcess message;
        message.start(u"swaymsg"_s,
                      {u"--quiet"_s, u"--socket"_s, socket, u"[app_id=\"^%1$\"] focus"_s.arg(applicationId)});
        return message.waitForFinished(patience) && message.exitCode() == 0;
    }));
}

void WaylandDesktop::bringToFrontOnKWin(const QString& applicationId) {
    loadIntoKWin(u"bringToFront"_s, uR"(
        var wanted = "%1";
        function show(window) {
            if (String(window.resourceClass) !== wanted) return;
            if (workspace.clientList) workspace.activeClient = window; else workspace.activeWindow = window;
        }
        (workspace.clientList ? workspace.clientList() : workspace.windowList()).forEach(show);
    )"_s.arg(applicationId));
    unloadFromKWin(u"bringToFront"_s);
}

void WaylandDesktop::loadIntoKWin(const QString& name, const QString& script) {
    const QString file = m_runtime + u'/' + name + u".js"_s;
    std::ofstream(file.toStdString()) << script.toStdString();
    const QDBusReply<int> number = callScripting(u"loadScript"_s, {file, name});
    ASSERT_TRUE(number.isValid() && number.value() >= 0) << number.error().message().toStdString();
    // The first path is KWin 5's, the second KWin 6's. The call returns once the script has run.
    for (const auto& folder : {u"/"_s, u"/Scripting/Script"_s})
        bus().call(QDBusMessage::createMethodCall(u"org.kde.KWin"_s, folder + QString::number(number.value()),
                                                  u"org.kde.kwin.Script"_s, u"run"_s));
}

void WaylandDesktop::unloadFromKWin(const QString& name) {
    callScripting(u"unloadScript"_s, {name});
    ASSERT_TRUE(waitUntil([&] { return !isLoadedInKWin(name); }));
}

bool WaylandDesktop::isLoadedInKWin(const QString& name) const {
    return callScripting(u"isScriptLoaded"_s, {name}).arguments().value(0).toBool();
}

QDBusMessage WaylandDesktop::callScripting(const QString& method, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(u"org.kde.KWin"_s, u"/Scripting"_s,
                                                  u"org.kde.kwin.Scripting"_s, method);
    message.setArguments(arguments);
    return bus().call(message);
}

void WaylandDesktop::install(const std::string& id, const std::string& lines) {
    const auto folder = home.path() / "own" / "applications";
    fs::create_directories(folder);
    std::ofstream(folder / (id + ".desktop")) << "[Desktop Entry]\nType=Application\n" << lines << '\n';
}

} // namespace brisklog::test
