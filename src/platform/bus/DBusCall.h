#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <functional>

class QObject;

namespace brisklog {

/// Sends a call and waits for nothing. `answered` gets the reply or the error, once, later, on the main
/// thread, unless `context` has gone by then. Without a bus, and when nobody replies within `milliseconds`
/// (less than 0: the bus's own limit), that is an error too.
void callLater(const QDBusConnection& bus, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage& answer)> answered, int milliseconds = -1);

/// Whether an answer is a reply and no error.
[[nodiscard]] bool isReply(const QDBusMessage& answer);

} // namespace brisklog
