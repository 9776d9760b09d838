#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>

namespace brisklog {

/// A signal on the bus, for as long as this lives.
struct DBusSignalAddress {
    QString service;
    QString path;
    QString interface;
    QString name;
};

/// Hands each arrival of one D-Bus signal to a function.
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
