#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QVariantMap>
#include <optional>

namespace brisklog {

/// An object on the bus that has one interface; its properties can only be read. It is there as long as it
/// exists.
class BusObject : public QDBusVirtualObject {
public:
    struct Address {
        QString path;
        QString interface;
        /// The members in the bus's own notation.
        QString members;
    };

    BusObject(QDBusConnection bus, Address address);
    ~BusObject() override;

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

protected:
    [[nodiscard]] virtual QVariantMap properties() const = 0;

    /// What the call returns; absent when there is no such method. The answer is sent afterwards, so whatever
    /// takes time or may end the program has to happen later.
    [[nodiscard]] virtual std::optional<QVariantList> handleCall(const QString& method,
                                                                 const QVariantList& arguments) = 0;

    void emitSignal(const QString& name);

    [[nodiscard]] QDBusConnection& bus() { return m_bus; }

private:
    [[nodiscard]] std::optional<QVariantList> readProperties(const QString& method,
                                                             const QVariantList& arguments) const;

    QDBusConnection m_bus;
    Address m_address;
};

} // namespace brisklog
