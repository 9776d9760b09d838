#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <functional>

class QObject;

namespace brisklog {

/// Sends a call without waiting. `answered` gets the reply or the error, once, asynchronously, on the main
/// thread, unless `context` has been destroyed by then. It is also an error if there is no bus or no reply
/// within `milliseconds` (less than 0: the bus's own limit).
void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage& answer)> answered, int milliseconds = -1);

/// Whether an answer is a reply rather than an error.
[[nodiscard]] bool isReply(const QDBusMessage& answer);

} // namespace brisklog
