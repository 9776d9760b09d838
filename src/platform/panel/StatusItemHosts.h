#pragma once

#include <functional>
#include <memory>

namespace brisklog {

class X11Watcher;

/// Which kind of panel shows status icons.
enum class StatusItemHostKind { statusNotifier, xembedTray };

/// A panel that has only just come needs a moment before it shows an icon properly.
enum class HostArrival { wasThere, justCame };

/// Waits for a panel that shows status icons. The toolkit decides once a process, when the first icon is
/// made, which kind of panel it talks to; the icon must therefore not be made before there is one.
class StatusItemHosts {
public:
    /// `found` is called once, on the main thread, at once where a panel is there already, else when one
    /// appears. `x11` is null where there is no X server.
    StatusItemHosts(X11Watcher* x11, std::function<void(StatusItemHostKind, HostArrival)> found);
    ~StatusItemHosts();
    StatusItemHosts(const StatusItemHosts&) = delete;
    StatusItemHosts& operator=(const StatusItemHosts&) = delete;

    /// Whether there is a panel just now: it may have ended since it was found. Asks it, which takes a
    /// moment.
    [[nodiscard]] bool hasHost() const;

    /// To be called when an XEmbed tray has come.
    void trayAppeared();

private:
    class BusWatch;

    void lookForTray(HostArrival arrival);
    void report(StatusItemHostKind kind, HostArrival arrival);

    X11Watcher* m_x11;
    std::function<void(StatusItemHostKind, HostArrival)> m_found;
    std::unique_ptr<BusWatch> m_busWatch;
};

} // namespace brisklog
