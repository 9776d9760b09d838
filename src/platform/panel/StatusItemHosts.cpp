#include "platform/panel/StatusItemHosts.h"

#include "platform/bus/DBusCall.h"
#include "platform/bus/DBusSignal.h"

#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
/// In milliseconds. A panel that has not answered by then is considered gone.
constexpr int longestWait = 300;

QDBusMessage hostQuestion() {
    QDBusMessage question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({watcherService, u"IsStatusNotifierHostRegistered"_s});
    question.setAutoStartService(false);
    return question;
}

bool saysYes(const QDBusReply<QDBusVariant>& answer) {
    return answer.isValid() && answer.value().variant().toBool();
}

} // namespace

/// Asks the bus for a StatusNotifier host, now and on each change.
class StatusItemHosts::BusWatch final : public QObject {
public:
    BusWatch(QDBusConnection bus, std::function<void(HostArrival)> hostFound, std::function<void()> noHostYet)
        : m_bus(std::move(bus)), m_hostFound(std::move(hostFound)), m_noHostYet(std::move(noHostYet)),
          m_hostRegistered(m_bus,
                           {watcherService, watcherPath, watcherService, u"StatusNotifierHostRegistered"_s},
                           [this](const QDBusMessage&) { ask(HostArrival::justArrived); }),
          m_serviceWatcher(watcherService, m_bus, QDBusServiceWatcher::WatchForRegistration) {
        connect(&m_serviceWatcher, &QDBusServiceWatcher::serviceRegistered, this,
                [this] { ask(HostArrival::justArrived); });
        ask(HostArrival::alreadyThere);
    }

    [[nodiscard]] bool hasHost() const {
        return m_bus.isConnected() && saysYes(m_bus.call(hostQuestion(), QDBus::Block, longestWait));
    }

private:
    void ask(HostArrival arrival) {
        callLater(m_bus, hostQuestion(), *this, [this, arrival](const QDBusMessage& answer) {
            if (saysYes(answer))
                m_hostFound(arrival);
            else
                m_noHostYet();
        });
    }

    QDBusConnection m_bus;
    std::function<void(HostArrival)> m_hostFound;
    std::function<void()> m_noHostYet;
    DBusSignal m_hostRegistered;
    QDBusServiceWatcher m_serviceWatcher;
};

// Panels may offer both, so an existing tray is looked for only once the bus has reported no host.
StatusItemHosts::StatusItemHosts(WindowServer& windowServer, Found found, QDBusConnection bus)
    : m_windowServer(windowServer), m_found(std::move(found)),
      m_busWatch(std::make_unique<BusWatch>(
          std::move(bus),
          [this](HostArrival arrival) { report(StatusItemHostKind::statusNotifier, arrival); },
          [this] { lookForTray(HostArrival::alreadyThere); })),
      m_trays(m_windowServer.watchTrays([this] { lookForTray(HostArrival::justArrived); })) {}

StatusItemHosts::~StatusItemHosts() = default;

bool StatusItemHosts::hasHost() const { return m_windowServer.hasTray() || m_busWatch->hasHost(); }

void StatusItemHosts::lookForTray(HostArrival arrival) {
    if (m_windowServer.hasTray())
        report(StatusItemHostKind::xembedTray, arrival);
}

void StatusItemHosts::report(StatusItemHostKind kind, HostArrival arrival) {
    if (const auto found = std::exchange(m_found, nullptr))
        found(kind, arrival);
}

} // namespace brisklog
