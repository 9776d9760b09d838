#pragma once

#include "platform/bus/DBusSignal.h"
#include "platform/dialogs/SaveDialog.h"

#include <QDBusServiceWatcher>
#include <memory>

namespace brisklog {

/// How a save panel of the desktop's portal ended.
struct PortalAnswer {
    enum class Kind {
        chosen,      ///< with a file
        cancelled,   ///< by the user
        unavailable, ///< there is no such portal, it vanished, or its answer is unusable
    };

    Kind kind;
    std::filesystem::path file;
};

/// One save panel shown by the desktop's portal. It ends with one asynchronous call of `answered` and must be
/// deleted after that; if deleted earlier, it withdraws the panel without an answer.
class PortalSaveRequest final : public QObject {
public:
    using Answered = std::function<void(const PortalAnswer&)>;

    /// `parentWindow` is the portal's identifier of the window; empty for none.
    PortalSaveRequest(QDBusConnection bus, SaveQuestion question, QString parentWindow, Answered answered);
    ~PortalSaveRequest() override;

private:
    void askForPortal();
    void showPanel();
    void listenAt(const QString& handle);
    void handleResponse(const QDBusMessage& response);
    void withdraw();
    void finish(const PortalAnswer& answer);
    /// Calls `then` with the reply; an error, or no reply in time, ends the request.
    void call(const QDBusMessage& message, int milliseconds,
              const std::function<void(const QDBusMessage&)>& then);

    QDBusConnection m_bus;
    SaveQuestion m_question;
    QString m_parentWindow;
    Answered m_answered;
    QString m_handle;
    std::unique_ptr<DBusSignal> m_response;
    QDBusServiceWatcher m_service;
    DBusSignal m_busLost;
};

} // namespace brisklog
