#include "platform/frontmost/KWinScript.h"

#include "platform/bus/DBusCall.h"
#include "platform/frontmost/ProgramName.h"

#include <QDir>
#include <QStandardPaths>
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
const QString fourTexts = u"ssss"_s;

/// In milliseconds.
constexpr int unloadTimeout = 500;

/// KWin 5 and 6 name things differently. The class of a window may become known late. The desktop itself is
/// not an application.
const QString scriptText = uR"(
var followed = null;
function nameChanged() { tell(followed); }
function eachNameSignal(window, action) {
    [window.windowClassChanged, window.desktopFileNameChanged].forEach(function(signal) {
        try { if (signal) signal[action](nameChanged); } catch (gone) {}
    });
}
function tell(window) {
    if (!window || window.desktopWindow)
        callDBus("%1", "%2", "%3", "%4");
    else
        callDBus("%1", "%2", "%3", "%4", String(window.desktopFileName || ""), String(window.resourceClass || ""),
                 String(window.resourceName || ""), String(window.pid || 0));
}
function follow(window) {
    if (followed)
        eachNameSignal(followed, "disconnect");
    followed = window;
    if (followed)
        eachNameSignal(followed, "connect");
    tell(followed);
}
(workspace.windowActivated || workspace.clientActivated).connect(follow);
follow((workspace.windowActivated ? workspace.activeWindow : workspace.activeClient) || null);
)"_s;

WindowIdentity identityFrom(const QVariantList& arguments) {
    std::vector<std::string> names;
    for (const QVariant& argument : arguments.first(3))
        names.push_back(windowName(argument.toString().toStdString()));
    WindowIdentity window{
        .names = names, .windowClass = names[1].empty() ? names[0] : names[1], .program = {}};
    std::erase(window.names, std::string());
    if (const auto process = arguments[3].toString().toUInt(); process != 0)
        window.program = programName(process);
    return window;
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
    if (!message.signature().isEmpty() && message.signature() != fourTexts)
        return false;
    connection.send(message.createReply());
    m_hasCalled = true;
    m_handlers.told(arguments.isEmpty() ? std::nullopt : std::optional(identityFrom(arguments)));
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
