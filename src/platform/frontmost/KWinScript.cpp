#include "platform/frontmost/KWinScript.h"

#include "platform/bus/DBusCall.h"
#include "platform/frontmost/ProgramName.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

/// The same for all runs of this program, so that a script left behind by a killed run can be found.
const QString scriptName = u"example.brisklog.Brisklog.frontmost"_s;

const QString ownPath = u"/example/brisklog/Brisklog/frontmost"_s;
const QString ownInterface = u"example.brisklog.Brisklog.Frontmost"_s;
const QString tellMethod = u"tell"_s;

/// What the script reports about a window: desktop file, class, instance, process.
constexpr qsizetype textsPerWindow = 4;
const QString oneWindow = u"ssss"_s;
const QString twoWindows = u"ssssssss"_s;

/// In milliseconds.
constexpr int unloadTimeout = 500;

/// KWin 5 and 6 name things differently. The class of a window may become known late. The desktop itself is
/// not an application. Only the first report has a second window: the uppermost of another program.
const QString scriptText = uR"(
var followed = null;
function nameChanged() { tell([followed]); }
function eachNameSignal(window, action) {
    [window.windowClassChanged, window.desktopFileNameChanged].forEach(function(signal) {
        try { if (signal) signal[action](nameChanged); } catch (gone) {}
    });
}
function textsOf(window) {
    return [String(window.desktopFileName || ""), String(window.resourceClass || ""),
            String(window.resourceName || ""), String(window.pid || 0)];
}
function tell(windows) {
    var told = windows[0] && !windows[0].desktopWindow ? windows : [];
    callDBus.apply(null, told.reduce(function(words, window) { return words.concat(textsOf(window)); },
                                     ["%1", "%2", "%3", "%4"]));
}
function follow(window) {
    if (followed)
        eachNameSignal(followed, "disconnect");
    followed = window;
    if (followed)
        eachNameSignal(followed, "connect");
}
function isOnShownDesktop(window) {
    if (window.onAllDesktops)
        return true;
    return window.desktop === undefined ? window.desktops.indexOf(workspace.currentDesktop) >= 0
                                        : window.desktop === workspace.currentDesktop;
}
function behind(front) {
    return (workspace.windowList ? workspace.windowList() : workspace.clientList()).filter(function(window) {
        return front && window.pid !== front.pid && !window.specialWindow && !window.minimized &&
               !window.skipTaskbar && isOnShownDesktop(window);
    }).sort(function(one, other) { return other.stackingOrder - one.stackingOrder; }).slice(0, 1);
}
(workspace.windowActivated || workspace.clientActivated).connect(function(window) {
    follow(window);
    tell([followed]);
});
follow((workspace.windowActivated ? workspace.activeWindow : workspace.activeClient) || null);
tell([followed].concat(behind(followed)));
)"_s;

WindowIdentity identityFrom(const QVariantList& arguments) {
    std::vector<std::string> names;
    for (const QVariant& argument : arguments.first(3))
        names.push_back(windowName(argument.toString().toStdString()));
    WindowIdentity window{.names = names,
                          .windowClass = names[1].empty() ? names[0] : names[1],
                          .program = {},
                          .process = arguments[3].toString().toUInt()};
    std::erase(window.names, std::string());
    if (window.process != 0)
        window.program = programName(window.process);
    return window;
}

InFront inFrontFrom(const QVariantList& arguments) {
    if (arguments.isEmpty())
        return {.kind = InFront::Kind::nothing};
    return {.kind = InFront::Kind::window, .window = identityFrom(arguments)};
}

QString folderForFile() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

} // namespace

KWinScript::KWinScript(QDBusConnection bus, QString kwin, Handlers handlers)
    : m_bus(std::move(bus)), m_kwin(std::move(kwin)), m_handlers(std::move(handlers)),
      m_file(folderForFile() + u"/brisklog-XXXXXX.js"_s) {
    m_bus.registerVirtualObject(ownPath, this);
    callLater(m_bus, unloading(), *this, [this](const QDBusMessage&) { load(); });
}

/// The bus replies only after it has received everything sent before, so the script is unloaded even if this
/// program ends now. KWin itself is not waited for.
KWinScript::~KWinScript() {
    // On a bus that has gone, the toolkit's own call would end the program.
    if (!m_bus.isConnected())
        return;
    m_bus.unregisterObject(ownPath);
    m_bus.send(unloading());
    auto question = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                   u"org.freedesktop.DBus"_s, u"GetId"_s);
    (void)m_bus.call(question, QDBus::Block, unloadTimeout);
}

QString KWinScript::introspect(const QString& /*path*/) const { return {}; }

bool KWinScript::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.service() != m_kwin || message.interface() != ownInterface || message.member() != tellMethod)
        return false;
    const QVariantList arguments = message.arguments();
    if (!QStringList{QString(), oneWindow, twoWindows}.contains(message.signature()))
        return false;
    connection.send(message.createReply());
    Report report{.inFront = inFrontFrom(arguments.first(std::min(arguments.size(), textsPerWindow))),
                  .behind = {}};
    if (!std::exchange(m_hasCalled, true))
        report.behind = inFrontFrom(arguments.mid(textsPerWindow));
    m_handlers.told(report);
    return true;
}

void KWinScript::load() {
    if (!writeFile())
        return m_handlers.failed();
    QDBusMessage question = scripting(u"loadScript"_s);
    question.setArguments({m_file.fileName(), scriptName});
    callLater(m_bus, question, *this, [this](const QDBusMessage& reply) {
        const int script = isReply(reply) ? reply.arguments().value(0, -1).toInt() : -1;
        if (script < 0)
            return m_handlers.failed();
        run(waysToRun(script));
    });
}

/// A running script reports the active window before KWin replies; telling it twice to run does no harm.
void KWinScript::run(const QList<QDBusMessage>& ways) {
    if (m_hasCalled)
        return;
    if (ways.isEmpty())
        return m_handlers.failed();
    callLater(m_bus, ways.first(), *this, [this, ways](const QDBusMessage&) { run(ways.mid(1)); });
}

/// The script's object path differs between KWin 5 and KWin 6. Numbers are reused when scripts are loaded and
/// unloaded, and then possibly neither path leads to ours; the last way runs all scripts that are not running
/// yet.
QList<QDBusMessage> KWinScript::waysToRun(int script) const {
    QList<QDBusMessage> ways;
    for (const QString& folder : {u"/Scripting/Script"_s, u"/"_s})
        ways.push_back(QDBusMessage::createMethodCall(m_kwin, folder + QString::number(script),
                                                      u"org.kde.kwin.Script"_s, u"run"_s));
    ways.push_back(scripting(u"start"_s));
    return ways;
}

QDBusMessage KWinScript::unloading() const {
    QDBusMessage message = scripting(u"unloadScript"_s);
    message.setArguments({scriptName});
    return message;
}

QDBusMessage KWinScript::scripting(const QString& method) const {
    return QDBusMessage::createMethodCall(m_kwin, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s, method);
}

bool KWinScript::writeFile() {
    const QByteArray text = scriptText.arg(m_bus.baseService(), ownPath, ownInterface, tellMethod).toUtf8();
    return m_file.open() && m_file.write(text) == text.size() && m_file.flush();
}

} // namespace brisklog
