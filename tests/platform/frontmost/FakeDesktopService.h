#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <functional>
#include <optional>
#include <vector>

namespace brisklog::test {

/// A service of the desktop on a bus that answers as the test says and records what it was asked.
class FakeDesktopService final : public QDBusVirtualObject {
public:
    /// Gives the answer's arguments; absent: an error.
    using Answers = std::function<std::optional<QVariantList>(const QDBusMessage& call)>;

    FakeDesktopService(const QString& name, Answers answers)
        : m_name(name), m_answers(std::move(answers)),
          m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), m_name)) {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        m_bus.registerService(m_name);
    }

    ~FakeDesktopService() override {
        m_bus.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
        QDBusConnection::disconnectFromBus(m_name);
    }

    void emitSignal(const QString& path, const QString& interface, const QString& name,
                    const QVariantList& arguments, const QString& receiver = {}) const {
        auto signal = receiver.isEmpty()
                          ? QDBusMessage::createSignal(path, interface, name)
                          : QDBusMessage::createTargetedSignal(receiver, path, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override {
        calls.push_back(message.member());
        const auto answer = m_answers(message);
        m_bus.send(
            answer ? message.createReply(*answer)
                   : message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such method")));
        return true;
    }

    std::vector<QString> calls;

private:
    QString m_name;
    Answers m_answers;
    QDBusConnection m_bus;
};

} // namespace brisklog::test
