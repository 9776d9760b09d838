#include "platform/dialogs/PortalSaveRequest.h"

#include "platform/bus/DBusCall.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QFile>
#include <QUrl>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

using Kind = PortalAnswer::Kind;

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString fileChooser = u"org.freedesktop.portal.FileChooser"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;

// The bus library emits this signal itself, locally.
const QString localPath = u"/org/freedesktop/DBus/Local"_s;
const QString localInterface = u"org.freedesktop.DBus.Local"_s;

/// Long enough for a portal that is only just starting, short enough for a user waiting for the panel.
constexpr int millisecondsForPresence = 3000;
constexpr int millisecondsForPanel = 15000;

QDBusMessage presenceQuestion() {
    auto question = QDBusMessage::createMethodCall(portalService, portalPath,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({fileChooser, u"version"_s});
    return question;
}

QString newToken() {
    static int count = 0;
    return u"brisklog"_s + QString::number(++count);
}

/// Where the portal will send the answer, according to its naming rule.
QString handleFor(const QDBusConnection& bus, const QString& token) {
    QString sender = bus.baseService().mid(1);
    return portalPath + u"/request/"_s + sender.replace(u'.', u'_') + u'/' + token;
}

// A file filter as the portal represents it: its name, and the rules that select files.
using PortalFilterRule = std::pair<uint, QString>;
using PortalFileFilter = std::pair<QString, QList<PortalFilterRule>>;
constexpr uint byPattern = 0;
constexpr uint byMediaType = 1;

PortalFileFilter pdfFilter() {
    qDBusRegisterMetaType<PortalFilterRule>();
    qDBusRegisterMetaType<QList<PortalFilterRule>>();
    qDBusRegisterMetaType<PortalFileFilter>();
    qDBusRegisterMetaType<QList<PortalFileFilter>>();
    return {u"PDF-Dokumente"_s, {{byPattern, u"*.pdf"_s}, {byMediaType, u"application/pdf"_s}}};
}

QVariantMap panelOptions(const SaveQuestion& question, const QString& token) {
    const PortalFileFilter pdfs = pdfFilter();
    return {{u"handle_token"_s, token},
            {u"modal"_s, true},
            {u"accept_label"_s, u"Speichern"_s},
            {u"current_name"_s, question.name},
            // Paths are passed as bytes with a terminating zero.
            {u"current_folder"_s, QFile::encodeName(question.folder) + '\0'},
            {u"filters"_s, QVariant::fromValue(QList<PortalFileFilter>{pdfs})},
            {u"current_filter"_s, QVariant::fromValue(pdfs)}};
}

PortalAnswer chosenFile(const QVariantMap& results) {
    const QStringList uris = results.value(u"uris"_s).toStringList();
    const QString file = uris.isEmpty() ? QString() : QUrl(uris.first()).toLocalFile();
    if (file.isEmpty())
        return {Kind::unavailable, {}};
    return {Kind::chosen, QFile::encodeName(file).toStdString()};
}

} // namespace

PortalSaveRequest::PortalSaveRequest(QDBusConnection bus, SaveQuestion question, QString parentWindow,
                                     Answered answered)
    : m_bus(std::move(bus)), m_question(std::move(question)), m_parentWindow(std::move(parentWindow)),
      m_answered(std::move(answered)),
      m_service(portalService, m_bus, QDBusServiceWatcher::WatchForUnregistration),
      m_busLost(m_bus, {{}, localPath, localInterface, u"Disconnected"_s}, [this](const QDBusMessage&) {
          finish({Kind::unavailable, {}});
      }) {
    connect(&m_service, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        finish({Kind::unavailable, {}});
    });
    askForPortal();
}

PortalSaveRequest::~PortalSaveRequest() {
    if (m_answered)
        withdraw();
}

void PortalSaveRequest::askForPortal() {
    call(presenceQuestion(), millisecondsForPresence, [this](const QDBusMessage&) { showPanel(); });
}

void PortalSaveRequest::showPanel() {
    const QString token = newToken();
    // The answer may come before the call returns.
    listenAt(handleFor(m_bus, token));
    auto panel = QDBusMessage::createMethodCall(portalService, portalPath, fileChooser, u"SaveFile"_s);
    panel.setArguments({m_parentWindow, m_question.title, panelOptions(m_question, token)});
    call(panel, millisecondsForPanel, [this](const QDBusMessage& reply) {
        const auto handle = reply.arguments().value(0).value<QDBusObjectPath>().path();
        // Old portals chose the path themselves.
        if (!handle.isEmpty() && handle != m_handle)
            listenAt(handle);
    });
}

void PortalSaveRequest::listenAt(const QString& handle) {
    m_handle = handle;
    m_response = std::make_unique<DBusSignal>(
        m_bus, DBusSignalAddress{portalService, handle, requestInterface, u"Response"_s},
        [this](const QDBusMessage& response) { handleResponse(response); });
}

void PortalSaveRequest::handleResponse(const QDBusMessage& response) {
    // 0 means chosen, 1 cancelled; 2 is what some desktops send when the panel's window is closed.
    if (response.arguments().value(0).toUInt() != 0)
        finish({Kind::cancelled, {}});
    else
        finish(chosenFile(qdbus_cast<QVariantMap>(response.arguments().value(1))));
}

void PortalSaveRequest::withdraw() {
    if (!m_handle.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(portalService, m_handle, requestInterface, u"Close"_s));
}

void PortalSaveRequest::finish(const PortalAnswer& answer) {
    if (const auto answered = std::exchange(m_answered, {}))
        answered(answer);
}

void PortalSaveRequest::call(const QDBusMessage& message, int milliseconds,
                             const std::function<void(const QDBusMessage&)>& then) {
    const auto answered = [this, then](const QDBusMessage& answer) {
        if (!m_answered)
            return;
        if (isReply(answer))
            return then(answer);
        withdraw();
        finish({Kind::unavailable, {}});
    };
    callLater(m_bus, message, *this, answered, milliseconds);
}

} // namespace brisklog
