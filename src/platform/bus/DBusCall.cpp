#include "platform/bus/DBusCall.h"

#include <QDBusPendingCallWatcher>
#include <utility>

namespace brisklog {

using namespace Qt::StringLiterals;

void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage& answer)> answered, int milliseconds) {
    // Without a connection, the toolkit's own call would never finish, not even with an error.
    if (!bus.isConnected()) {
        const auto error = QDBusMessage::createError(QDBusError::Disconnected, u"there is no bus"_s);
        QMetaObject::invokeMethod(
            &context, [answered = std::move(answered), error] { answered(error); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, milliseconds), &context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         answered(watcher->reply());
                     });
}

bool isReply(const QDBusMessage& answer) { return answer.type() == QDBusMessage::ReplyMessage; }

} // namespace brisklog
