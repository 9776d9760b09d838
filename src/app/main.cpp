#include "app/BrisklogApp.h"
#include "app/PopoverWindow.h"
#include "app/StatusIcons.h"
#include "platform/Fatal.h"
#include "platform/bus/PortalAppearance.h"
#include "platform/bus/RunningInstance.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/dialogs/QtSavePanel.h"
#include "platform/documents/CairoPdfFacility.h"
#include "platform/files/FailedWrites.h"
#include "platform/files/PosixFiles.h"
#include "platform/files/ProcessLock.h"
#include "platform/files/StandardOutputLog.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"
#include "platform/loop/QtBackground.h"
#include "platform/loop/QtRunLoop.h"
#include "platform/loop/SystemClock.h"
#include "platform/pictures/QtImages.h"
#include "platform/x11/X11Watcher.h"
#include "profile/screens/LogoPickerWindow.h"
#include "ui/look/Look.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>
#include <chrono>
#include <cstdlib>
#include <malloc.h>
#include <optional>
#include <thread>

namespace {

using namespace brisklog;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The process that has the lock may be starting just now, and one that was killed keeps it until its last
/// write is done.
constexpr std::chrono::seconds waitForOther(5);

/// How long a desktop may take to show its panel before the popover opens as a window.
constexpr TimeInterval waitForPanel = 3;

/// Once the start is over.
constexpr TimeInterval waitBeforeMemoryIsGivenBack = 2;

/// For each kind of work in the background.
constexpr int threads = 2;

/// Windows can be placed under X alone, so it comes first, unless the user decided otherwise.
void preferPlatformThatPlacesWindows() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

/// Asks the process that runs already to show itself; false when there is none within reach.
bool tellOther(int argumentCount, char** arguments) {
    const QCoreApplication messenger(argumentCount, arguments);
    return RunningInstance::activateOther();
}

/// The lock of this process; ends the program when another one has it, after asking that one to show itself.
std::unique_ptr<ProcessLock> becomeOnlyProcess(int argumentCount, char** arguments) {
    const PosixFiles files;
    const auto folder = files.stateFolder();
    if (!folder || !files.documentsFolder())
        stopProgram("no documents folder: HOME is not set");
    auto lock = std::make_unique<ProcessLock>(*folder / "lock");
    const auto end = std::chrono::steady_clock::now() + waitForOther;
    while (lock->state() != ProcessLock::State::held) {
        if (tellOther(argumentCount, arguments))
            std::exit(EXIT_SUCCESS);
        // Without a lock file the bus alone can tell.
        if (lock->state() == ProcessLock::State::unavailable)
            break;
        if (std::chrono::steady_clock::now() > end)
            stopProgram("already running, but not reachable over the session bus");
        std::this_thread::sleep_for(100ms);
        lock = std::make_unique<ProcessLock>(*folder / "lock");
    }
    return lock;
}

void openLink(std::string_view address) {
    QDesktopServices::openUrl(QUrl(QString::fromUtf8(address.data(), qsizetype(address.size()))));
}

/// This machine, as it really is.
struct Machine {
    StandardOutputLog log;
    PosixFiles files;
    SystemClock clock;
    QtRunLoop runLoop;
    SqliteUserDefaults userDefaults{*PosixFiles::configurationFolder() / "defaults.sqlite", clock, log};
    CairoPdfFacility pdf;
    QtImages images;
    /// Apart, so that a folder is listed at once while large pictures are being decoded.
    QtBackground folders{threads};
    QtBackground pictures{threads};
    PortalAppearance appearance;
    std::unique_ptr<FrontmostApplication> frontmost = chooseFrontmostApplication();
};

/// The running program: the application on this machine, its panel and its neighbours.
class Program {
public:
    Program() {
        m_app.launch();
        m_hosts.emplace(m_x11.get(), [this](StatusItemHostKind host, HostArrival arrival) {
            m_statusItem->show(host, arrival);
        });
        m_fallback = m_machine.runLoop.runAfter(waitForPanel, [this] { showWithoutPanel(); });
        // What reading the files took, up to 25 MB, would otherwise stay with a program that idles all day.
        m_afterStart = m_machine.runLoop.runAfter(waitBeforeMemoryIsGivenBack, [] { ::malloc_trim(0); });
    }

private:
    std::unique_ptr<X11Watcher> watchX11() {
        if (QGuiApplication::platformName() != u"xcb"_s)
            return nullptr;
        return std::make_unique<X11Watcher>(
            X11Watcher::Handlers{.pointerPressed = [this] { m_app.handlePointerPress(); },
                                 .trayAppeared = [this] { m_hosts->trayAppeared(); }});
    }

    std::unique_ptr<StatusItem> makeStatusItem() {
        auto item = std::make_unique<QtStatusItem>(makeStatusIcons(), m_machine.runLoop);
        m_statusItem = item.get();
        item->addMenuEntry(u"Öffnen"_s, [this] { m_app.open(); });
        item->addMenuEntry(u"Beenden"_s, [this] { m_app.quit(); });
        return item;
    }

    /// The sheet that was used last, else the popover.
    [[nodiscard]] QWidget* windowInFront() const {
        QWidget* const sheet = QApplication::activeModalWidget();
        return sheet != nullptr ? sheet : m_app.popover();
    }

    /// Not while the panel is gone: nobody could reach an icon then.
    [[nodiscard]] bool hasStatusItem() const { return m_statusItem->isShown() && m_hosts->hasHost(); }

    void showWithoutPanel() {
        if (!hasStatusItem())
            m_app.open();
    }

    Machine m_machine;
    std::unique_ptr<X11Watcher> m_x11{watchX11()};
    QtSavePanel m_savePanel{m_machine.files,
                            {.parentWindow = [this] { return windowInFront(); },
                             .holdOpen = [this] { return m_app.popover()->holdOpen(); }}};
    LogoPickerWindowController m_logoPicker{{.picker = {.files = m_machine.files,
                                                        .images = m_machine.images,
                                                        .background = m_machine.folders,
                                                        .log = m_machine.log},
                                             .pictures = m_machine.pictures,
                                             .parentWindow = [this] { return m_app.popover(); }}};
    QtStatusItem* m_statusItem = nullptr;
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
                       .makeStatusItem = [this] { return makeStatusItem(); },
                       .hasStatusItem = [this] { return hasStatusItem(); },
                       .x11 = m_x11.get(),
                       .terminate = [] { QApplication::quit(); },
                       .openLink = openLink}};
    std::optional<StatusItemHosts> m_hosts;
    std::unique_ptr<Timer> m_fallback;
    std::unique_ptr<Timer> m_afterStart;
    RunningInstance m_instance{[this] { m_app.open(); }};
};

} // namespace

int main(int argumentCount, char** arguments) {
    letFailedWritesReturn();
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
