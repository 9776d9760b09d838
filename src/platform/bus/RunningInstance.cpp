#include "platform/bus/RunningInstance.h"

#include "platform/bus/DBusCall.h"

#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

// The desktop's standard interface for single-instance programs; launchers use it too.
const QString serviceName = u"example.brisklog.Brisklog"_s;
const QString objectPath = u"/example/brisklog/Brisklog"_s;
const QString interfaceName = u"org.freedesktop.Application"_s;

const QString connectionName = u"messenger"_s;

/// In milliseconds.
constexpr int waitForAnswer = 5000;

bool callActivate(const QDBusConnection& bus) {
    QDBusMessage call = QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, u"Activate"_s);
    call.setArguments({QVariantMap()});
    call.setAutoStartService(false);
    return isReply(bus.call(call, QDBus::Block, waitForAnswer));
}

} // namespace

class RunningInstance::Service final : public QDBusVirtualObject {
public:
    explicit Service(std::function<void()> activated) : m_activated(std::move(activated)) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.isConnected())
            return;
        bus.registerVirtualObject(objectPath, this);
        bus.interface()->registerService(serviceName, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override {
        return uR"(<interface name="org.freedesktop.Application">
<method name="Activate"><arg type="a{sv}" name="platform_data" direction="in"/></method>
<method name="Open"><arg type="as" name="uris" direction="in"/><arg type="a{sv}" name="platform_data" direction="in"/></method>
<method name="ActivateAction"><arg type="s" name="action_name" direction="in"/><arg type="av" name="parameter" direction="in"/><arg type="a{sv}" name="platform_data" direction="in"/></method>
</interface>)"_s;
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.interface() != interfaceName)
            return false;
        connection.send(message.createReply());
        if (message.member() == u"Activate"_s)
            m_activated();
        return true;
    }

private:
    std::function<void()> m_activated;
};

RunningInstance::RunningInstance(std::function<void()> activated)
    : m_service(std::make_unique<Service>(std::move(activated))) {}

RunningInstance::~RunningInstance() = default;

bool RunningInstance::activateOther() {
    // A separate connection: the shared one would be broken for any later application object.
    const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!bus.isConnected())
        return false;
    const bool isReached = callActivate(bus);
    QDBusConnection::disconnectFromBus(connectionName);
    return isReached;
}

} // namespace brisklog
