#pragma once

#include "platform/WindowServer.h"

#include <QDBusConnection>
#include <functional>
#include <memory>

namespace brisklog {

/// Which kind of panel shows status icons.
enum class StatusItemHostKind { statusNotifier, xembedTray };

/// A panel that has just appeared needs a moment before it shows an icon properly.
enum class HostArrival { alreadyThere, justArrived };

/// Waits for a panel that shows status icons. The toolkit decides once per process, when the first icon is
/// created, which kind of panel it uses; the icon must therefore not be created before there is one.
class StatusItemHosts {
public:
    using Found = std::function<void(StatusItemHostKind, HostArrival)>;

    /// `found` is called once, asynchronously, on the main thread: soon if there is a panel already,
    /// otherwise when one appears.
    StatusItemHosts(WindowServer& windowServer, Found found,
                    QDBusConnection bus = QDBusConnection::sessionBus());
    ~StatusItemHosts();
    StatusItemHosts(const StatusItemHosts&) = delete;
    StatusItemHosts& operator=(const StatusItemHosts&) = delete;

    /// Whether there is a panel now: it may have ended since it was found. Asks it, which takes a moment.
    [[nodiscard]] bool hasHost() const;

private:
    class BusWatch;

    void lookForTray(HostArrival arrival);
    void report(StatusItemHostKind kind, HostArrival arrival);

    WindowServer& m_windowServer;
    Found m_found;
    std::unique_ptr<BusWatch> m_busWatch;
    Subscription m_trays;
};

} // namespace brisklog
