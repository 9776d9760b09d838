#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

namespace brisklog::test {

/// A panel on the bus that notes who wants to be shown, and asks and clicks as a user of it would.
class FakePanel final : public QDBusVirtualObject {
public:
    explicit FakePanel(const QString& address);
    ~FakePanel() override;

    /// Who registered an icon, in order.
    QStringList items;

    /// What the last item answers to a call; an error if there is none.
    [[nodiscard]] QDBusMessage ask(const QString& path, const QString& interface, const QString& method,
                                   const QVariantList& arguments = {}) const;

    /// A property of the last icon; invalid when it has none of that name.
    [[nodiscard]] QVariant property(const QString& name) const;

    /// Calls a method of the last icon and waits for its answer; returns the error's name, empty for none.
    [[nodiscard]] QString call(const QString& method, const QVariantList& arguments) const;

    /// What the last icon's menu answers.
    QVariantList askMenu(const QString& method, const QVariantList& arguments = {}) const;

    [[nodiscard]] QDBusConnection bus() const { return m_bus; }

    [[nodiscard]] QString introspect(const QString& path) const override;
    [[nodiscard]] bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusConnection m_bus;
};

} // namespace brisklog::test
