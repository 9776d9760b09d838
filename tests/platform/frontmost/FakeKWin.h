#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <vector>

namespace brisklog::test {

/// A window manager on the bus that takes scripts and runs none: a test says what the script would tell.
class FakeKWin final : public QDBusVirtualObject {
public:
    struct Behaviour {
        /// What the path of a script's object begins with.
        QString scriptFolder = QStringLiteral("/Scripting/Script");
        /// How many questions are refused before the scripting is there.
        int refusals = 0;
        /// Whether a script that is run tells that no window is active, as ours does.
        bool scriptSpeaks = true;
    };

    FakeKWin(const QString& address, Behaviour behaviour);
    ~FakeKWin() override;

    /// As the script would, of the window that is active now.
    QDBusPendingCall tell(const QVariantList& arguments) const { return tellFrom(m_bus, arguments); }

    /// The same from another connection.
    [[nodiscard]] QDBusPendingCall tellFrom(const QDBusConnection& bus, const QVariantList& arguments) const;

    /// The methods that were called, in order.
    [[nodiscard]] const std::vector<QString>& calls() const { return m_calls; }

    [[nodiscard]] bool hasRun() const { return !m_listener.isEmpty(); }

    [[nodiscard]] QString introspect(const QString& path) const override;
    [[nodiscard]] bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    [[nodiscard]] QDBusMessage answerTo(const QDBusMessage& message);
    void readScript(const QString& path);

    Behaviour m_behaviour;
    QDBusConnection m_bus;
    std::vector<QString> m_calls;
    QString m_script;
    /// Service, path, interface and method the script that runs calls.
    QStringList m_listener;
};

} // namespace brisklog::test
