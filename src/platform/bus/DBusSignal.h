#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>

namespace brisklog {

/// Identifies a signal on the bus.
struct DBusSignalAddress {
    QString service;
    QString path;
    QString interface;
    QString name;
};

/// Calls a function for each arrival of one D-Bus signal, for as long as it exists.
class DBusSignal final : public QObject {
    Q_OBJECT

public:
    DBusSignal(QDBusConnection bus, const DBusSignalAddress& address,
               std::function<void(const QDBusMessage&)> received);

private Q_SLOTS:
    void receive(const QDBusMessage& message);

private:
    std::function<void(const QDBusMessage&)> m_received;
};

} // namespace brisklog
