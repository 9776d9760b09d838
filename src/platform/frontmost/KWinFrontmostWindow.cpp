#include "platform/frontmost/KWinFrontmostWindow.h"

#include "platform/bus/DBusCall.h"

#include <QTimer>
#include <chrono>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

constexpr int attemptsAtScripting = 10;
constexpr std::chrono::milliseconds untilNextAttempt(500);

const QString kwinService = u"org.kde.KWin"_s;

QDBusMessage ownerQuestion() {
    auto question = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                   u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    question.setArguments({kwinService});
    return question;
}

/// Any scripting call without side effects will do.
QDBusMessage scriptingQuestion(const QString& kwin) {
    auto question = QDBusMessage::createMethodCall(kwin, u"/Scripting"_s, u"org.kde.kwin.Scripting"_s,
                                                   u"isScriptLoaded"_s);
    question.setArguments({QString()});
    return question;
}

} // namespace

KWinFrontmostWindow::KWinFrontmostWindow(QDBusConnection bus)
    : m_bus(std::move(bus)), m_serviceWatcher(kwinService, m_bus) {
    // Without a bus the answer is known at once.
    if (!m_bus.isConnected()) {
        m_availability = Availability::unavailable;
        return;
    }
    QObject::connect(&m_serviceWatcher, &QDBusServiceWatcher::serviceOwnerChanged, &m_context,
                     [this](const QString&, const QString&, const QString& newOwner) { setOwner(newOwner); });
    askForOwner();
}

KWinFrontmostWindow::~KWinFrontmostWindow() = default;

void KWinFrontmostWindow::beginWatching() {
    m_isWatching = true;
    if (!m_owner.isEmpty() && m_availability != Availability::notYetKnown)
        startScript();
}

void KWinFrontmostWindow::endWatching() {
    m_isWatching = false;
    endScript();
}

void KWinFrontmostWindow::askForOwner() {
    callLater(m_bus, ownerQuestion(), m_context, [this](const QDBusMessage& reply) {
        if (m_availability == Availability::notYetKnown && m_owner.isEmpty())
            setOwner(isReply(reply) ? reply.arguments().value(0).toString() : QString());
    });
}

/// A script lasts only as long as the KWin it was loaded into.
void KWinFrontmostWindow::setOwner(const QString& owner) {
    m_owner = owner;
    endScript();
    if (m_owner.isEmpty())
        setAvailability(Availability::unavailable);
    else
        askForScripting(attemptsAtScripting);
}

/// KWin claims its bus name before its scripting is ready.
void KWinFrontmostWindow::askForScripting(int attempts) {
    const auto answered = [this, attempts, owner = m_owner](const QDBusMessage& reply) {
        if (owner != m_owner)
            return;
        if (isReply(reply) && m_isWatching)
            startScript();
        setAvailability(isReply(reply) ? Availability::available : Availability::unavailable);
        if (!isReply(reply) && attempts > 1)
            QTimer::singleShot(untilNextAttempt, &m_context, [this, attempts, owner] {
                if (owner == m_owner)
                    askForScripting(attempts - 1);
            });
    };
    callLater(m_bus, scriptingQuestion(m_owner), m_context, answered);
}

void KWinFrontmostWindow::startScript() {
    if (m_script)
        return;
    m_script = std::make_unique<KWinScript>(
        m_bus, m_owner,
        KWinScript::Handlers{.told = [this](const KWinScript::Report& report) { note(report); },
                             .failed = [this] { setAvailability(Availability::unavailable); }});
}

void KWinFrontmostWindow::endScript() {
    m_script.reset();
    m_seen = {};
    m_behind = {};
}

void KWinFrontmostWindow::note(const KWinScript::Report& report) {
    m_seen = report.inFront;
    if (report.behind)
        m_behind = *report.behind;
    setAvailability(Availability::available);
}

/// Queued, because an observer may end the watching, which must not happen while an answer is being handled.
void KWinFrontmostWindow::setAvailability(Availability availability) {
    if (std::exchange(m_availability, availability) != availability)
        QMetaObject::invokeMethod(
            &m_context, [this] { announce(); }, Qt::QueuedConnection);
}

} // namespace brisklog
