#include "app/BrisklogApp.h"
#include "app/PopoverWindow.h"
#include "platform/Fatal.h"
#include "platform/bus/PortalAppearance.h"
#include "platform/bus/RunningInstance.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/dialogs/QtSavePanel.h"
#include "platform/documents/CairoPdfFacility.h"
#include "platform/files/PosixFiles.h"
#include "platform/files/Process.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"
#include "platform/loop/QtBackground.h"
#include "platform/loop/QtRunLoop.h"
#include "platform/loop/SystemClock.h"
#include "platform/panel/PanelStatusItem.h"
#include "platform/pictures/QtImages.h"
#include "platform/x11/X11WindowServer.h"
#include "profile/screens/LogoPickerWindow.h"
#include "ui/look/Look.h"
#include "ui/look/Text.h"

#include <QApplication>
#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>
#include <chrono>
#include <cstdlib>
#include <malloc.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace brisklog;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The process that holds the lock may still be starting, and a killed one holds it until its last write is
/// done.
constexpr std::chrono::seconds otherProcessTimeout(5);

/// Long enough for startup to be over.
constexpr TimeInterval memoryTrimDelay = 2;

/// For each kind of background work.
constexpr int threads = 2;

/// Asks the process that is already running to show itself; false when none can be reached.
bool showOther(int argumentCount, char** arguments) {
    const QCoreApplication messenger(argumentCount, arguments);
    return RunningInstance::activateOther();
}

/// The lock of this process. When another process holds it, asks that process to show itself and exits.
std::unique_ptr<ProcessLock> becomeOnlyProcess(int argumentCount, char** arguments) {
    const PosixFiles files;
    const auto folder = files.stateFolder();
    if (!folder || !files.documentsFolder())
        stopProgram("no documents folder: HOME is not set");
    const auto end = std::chrono::steady_clock::now() + otherProcessTimeout;
    for (;;) {
        auto lock = std::make_unique<ProcessLock>(*folder / "lock");
        if (lock->state() == ProcessLock::State::held)
            return lock;
        if (showOther(argumentCount, arguments))
            std::exit(EXIT_SUCCESS);
        // Without a lock file, only the bus can tell whether another process is running.
        if (lock->state() == ProcessLock::State::unavailable)
            return lock;
        if (std::chrono::steady_clock::now() > end)
            stopProgram("already running, but not reachable over the session bus");
        std::this_thread::sleep_for(100ms);
    }
}

/// Only X lets a program place its windows, so X is tried first unless the user chose otherwise.
void preferPlatformThatPlacesWindows() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

/// Under Wayland there may be an X server too, but our windows are not on it.
std::unique_ptr<WindowServer> chooseWindowServer() {
    if (QGuiApplication::platformName() == u"xcb"_s)
        return std::make_unique<X11WindowServer>();
    return std::make_unique<WindowServer>();
}

OwnWindows ownWindows() {
    return {.process = static_cast<std::uint32_t>(::getpid()),
            .names = {QGuiApplication::desktopFileName().toStdString(),
                      QCoreApplication::applicationName().toStdString()}};
}

void openLink(std::string_view address) { QDesktopServices::openUrl(QUrl(screenText(address))); }

/// Where an installation has put the handbook; empty if it has not.
std::string installedHandbook() {
    const QString page =
        QStandardPaths::locate(QStandardPaths::GenericDataLocation, u"brisklog/handbuch.html"_s);
    return page.isEmpty() ? std::string() : QUrl::fromLocalFile(page).toString().toStdString();
}

/// The real implementations for this machine.
struct Machine {
    StandardOutputLog log;
    PosixFiles files;
    SystemClock clock;
    QtRunLoop runLoop;
    SqliteUserDefaults userDefaults{*PosixFiles::configurationFolder() / "defaults.sqlite", clock, log};
    CairoPdfFacility pdf;
    QtImages images;
    /// Separate, so that folders are listed at once even while large pictures are being decoded.
    QtBackground folders{threads};
    QtBackground pictures{threads};
    PortalAppearance appearance;
    std::unique_ptr<FrontmostApplication> frontmost = chooseFrontmostApplication(ownWindows());
    std::unique_ptr<WindowServer> windowServer = chooseWindowServer();

    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem() {
        return std::make_unique<PanelStatusItem>(u":/symbols/brisklog-status.svg"_s, runLoop, *windowServer);
    }
};

/// The running program: the application on this machine.
class Program {
public:
    Program() {
        m_app.launch();
        // Returns the memory used for reading the files, up to 25 MB: otherwise a program that idles all day
        // would keep it.
        m_afterStart = m_machine.runLoop.runAfter(memoryTrimDelay, [] { ::malloc_trim(0); });
    }

private:
    Machine m_machine;
    QtSavePanel m_savePanel{m_machine.files,
                            {.parentWindow = [this] { return &m_app.popover()->frontWindow(); },
                             .holdOpen = [this] { return m_app.popover()->holdOpen(); }}};
    LogoPickerWindowController m_logoPicker{{.picker = {.files = m_machine.files,
                                                        .images = m_machine.images,
                                                        .background = m_machine.folders,
                                                        .log = m_machine.log},
                                             .pictures = m_machine.pictures,
                                             .parentWindow = [this] { return m_app.popover(); }}};
    BrisklogApp m_app{{.files = m_machine.files,
                       .userDefaults = m_machine.userDefaults,
                       .clock = m_machine.clock,
                       .runLoop = m_machine.runLoop,
                       .log = m_machine.log,
                       .savePanel = m_savePanel,
                       .pdf = m_machine.pdf,
                       .images = m_machine.images,
                       .frontmost = *m_machine.frontmost,
                       .logoPicker = m_logoPicker,
                       .systemAppearance = m_machine.appearance,
                       .windowServer = *m_machine.windowServer,
                       .makeStatusItem = [this] { return m_machine.makeStatusItem(); },
                       // Not `quit`, which the window that stands in for the popover would refuse.
                       .terminate = [] { QApplication::exit(); },
                       .openLink = openLink,
                       .handbook = installedHandbook()}};
    std::unique_ptr<Timer> m_afterStart;
    RunningInstance m_instance{[this] { m_app.open(); }};
};

} // namespace

int main(int argumentCount, char** arguments) {
    surviveFailedWrites();
    const auto lock = becomeOnlyProcess(argumentCount, arguments);
    preferPlatformThatPlacesWindows();
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(u"brisklog"_s);
    QApplication::setDesktopFileName(u"example.brisklog.Brisklog"_s);
    QApplication::setWindowIcon(QIcon(u":/symbols/brisklog.svg"_s));
    QApplication::setQuitOnLastWindowClosed(false);
    installLook(application, motionFromEnvironment());
    const Program program;
    return QApplication::exec();
}
