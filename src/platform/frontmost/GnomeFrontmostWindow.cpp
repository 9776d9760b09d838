#include "platform/frontmost/GnomeFrontmostWindow.h"

#include "platform/bus/DBusCall.h"
#include "platform/frontmost/ProgramName.h"

#include <QDBusArgument>
#include <QTimer>
#include <chrono>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

/// The shell says that the extension is on a moment before it knows our name on the bus.
constexpr int attemptsAtFollowing = 10;
constexpr std::chrono::milliseconds untilNextFollowing(500);

const QString extensionId = u"brisklog@brisklog.example"_s;
const QString shellService = u"org.gnome.Shell"_s;
const QString extensionsPath = u"/org/gnome/Shell"_s;
const QString extensionsInterface = u"org.gnome.Shell.Extensions"_s;
const QString reportPath = u"/example/brisklog/Frontmost"_s;
const QString reportInterface = u"example.brisklog.Frontmost"_s;

/// Desktop id, name and process of each window, the one in front first.
const QString reportSignature = u"a(ssu)"_s;

/// The shell's numbers for an extension's state; all others are passing.
enum class ExtensionState {
    active = 1,
    inactive = 2,
    error = 3,
    outOfDate = 4,
    initialized = 6,
    uninstalled = 99
};

QDBusMessage extensionQuestion() {
    auto question = QDBusMessage::createMethodCall(shellService, extensionsPath, extensionsInterface,
                                                   u"GetExtensionInfo"_s);
    question.setArguments({extensionId});
    question.setAutoStartService(false);
    return question;
}

QDBusMessage extensionCall(const QString& method) {
    return QDBusMessage::createMethodCall(shellService, reportPath, reportInterface, method);
}

FrontmostWindow::Availability availabilityFrom(const QVariantMap& information) {
    switch (static_cast<ExtensionState>(information.value(u"state"_s).toInt())) {
    case ExtensionState::active:
        return FrontmostWindow::Availability::available;
    case ExtensionState::inactive:
    case ExtensionState::initialized:
        return FrontmostWindow::Availability::switchedOff;
    case ExtensionState::error:
    case ExtensionState::outOfDate:
    case ExtensionState::uninstalled:
        break;
    }
    return FrontmostWindow::Availability::unavailable;
}

WindowIdentity readWindow(const QDBusArgument& argument) {
    QString id;
    QString name;
    WindowIdentity window;
    argument.beginStructure();
    argument >> id >> name >> window.process;
    argument.endStructure();
    window.names = {windowName(id.toStdString()), windowName(name.toStdString())};
    window.windowClass = window.names[1].empty() ? window.names[0] : window.names[1];
    std::erase(window.names, std::string());
    if (window.process != 0)
        window.program = programName(window.process);
    return window;
}

std::vector<WindowIdentity> windowsIn(const QDBusMessage& report) {
    std::vector<WindowIdentity> windows;
    const auto argument = report.arguments().value(0).value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd())
        windows.push_back(readWindow(argument));
    argument.endArray();
    return windows;
}

InFront windowOf(const std::vector<WindowIdentity>& windows, std::size_t index) {
    if (index >= windows.size())
        return {.kind = InFront::Kind::nothing};
    return {.kind = InFront::Kind::window, .window = windows[index]};
}

} // namespace

GnomeFrontmostWindow::GnomeFrontmostWindow(QDBusConnection bus)
    : m_bus(std::move(bus)), m_serviceWatcher(shellService, m_bus),
      m_extensionChanged(m_bus,
                         {.service = shellService,
                          .path = extensionsPath,
                          .interface = extensionsInterface,
                          .name = u"ExtensionStateChanged"_s},
                         [this](const QDBusMessage& signal) {
                             if (signal.arguments().value(0).toString() == extensionId)
                                 noteExtension(signal.arguments().value(1));
                         }),
      m_changed(
          m_bus,
          {.service = shellService, .path = reportPath, .interface = reportInterface, .name = u"Changed"_s},
          [this](const QDBusMessage& signal) { note(signal); }) {
    // Without a bus the answer is known at once.
    if (!m_bus.isConnected()) {
        m_availability = Availability::unavailable;
        return;
    }
    QObject::connect(&m_serviceWatcher, &QDBusServiceWatcher::serviceOwnerChanged, &m_context, [this] {
        forget();
        askForExtension();
    });
    askForExtension();
}

GnomeFrontmostWindow::~GnomeFrontmostWindow() { leave(); }

void GnomeFrontmostWindow::beginWatching() {
    if (std::exchange(m_isWatching, true))
        return;
    if (m_availability == Availability::available)
        follow(attemptsAtFollowing);
}

void GnomeFrontmostWindow::endWatching() {
    leave();
    m_isWatching = false;
    forget();
}

void GnomeFrontmostWindow::askForExtension() {
    callLater(m_bus, extensionQuestion(), m_context, [this](const QDBusMessage& answer) {
        noteExtension(isReply(answer) ? answer.arguments().value(0) : QVariant());
    });
}

void GnomeFrontmostWindow::noteExtension(const QVariant& information) {
    const Availability before = m_availability;
    setAvailability(availabilityFrom(qdbus_cast<QVariantMap>(information)));
    if (m_availability == before)
        return;
    forget();
    if (m_availability == Availability::available && m_isWatching)
        follow(attemptsAtFollowing);
}

void GnomeFrontmostWindow::follow(int attempts) {
    callLater(m_bus, extensionCall(u"Follow"_s), m_context, [this, attempts](const QDBusMessage& answer) {
        if (!m_isWatching || m_availability != Availability::available)
            return;
        if (isReply(answer))
            return note(answer);
        if (attempts == 1)
            return setAvailability(Availability::unavailable);
        QTimer::singleShot(untilNextFollowing, &m_context, [this, attempts] { follow(attempts - 1); });
    });
}

void GnomeFrontmostWindow::leave() {
    if (m_isWatching && m_availability == Availability::available)
        m_bus.send(extensionCall(u"Leave"_s));
}

void GnomeFrontmostWindow::note(const QDBusMessage& report) {
    if (!m_isWatching || report.signature() != reportSignature)
        return;
    const auto windows = windowsIn(report);
    m_seen = windowOf(windows, 0);
    m_behind = windowOf(windows, 1);
}

void GnomeFrontmostWindow::forget() {
    m_seen = {};
    m_behind = {};
}

/// Queued, because an observer may end the watching, which must not happen while an answer is being handled.
void GnomeFrontmostWindow::setAvailability(Availability availability) {
    if (std::exchange(m_availability, availability) != availability)
        QMetaObject::invokeMethod(
            &m_context, [this] { announce(); }, Qt::QueuedConnection);
}

} // namespace brisklog
