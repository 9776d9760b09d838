#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <vector>

namespace brisklog::test {

/// A window manager on the bus that accepts scripts and runs none: the test sends what the script would.
class FakeKWin final : public QDBusVirtualObject {
public:
    struct Behaviour {
        /// What the path of a script's object begins with.
        QString scriptFolder = QStringLiteral("/Scripting/Script");
        /// How many calls are refused before scripting becomes available.
        int refusals = 0;
        /// Whether running a script reports that no window is active, as running ours would.
        bool scriptSpeaks = true;
    };

    FakeKWin(const QString& address, Behaviour behaviour);
    ~FakeKWin() override;

    /// Reports the active window as the script would.
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
    /// Service, path, interface and method that the running script calls.
    QStringList m_listener;
};

} // namespace brisklog::test
