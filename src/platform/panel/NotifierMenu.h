#pragma once

#include "platform/panel/BusObject.h"
#include "platform/panel/BusTypes.h"

class QAction;
class QMenu;

namespace brisklog {

/// A menu as panels read it over the bus and draw it themselves. It must not change while it is there.
class NotifierMenu final : public BusObject {
public:
    static const QString path;

    NotifierMenu(QDBusConnection bus, const QMenu& menu);

protected:
    [[nodiscard]] QVariantMap properties() const override;
    [[nodiscard]] std::optional<QVariantList> handleCall(const QString& method,
                                                         const QVariantList& arguments) override;

private:
    [[nodiscard]] QVariant layout(int id) const;
    [[nodiscard]] QVariant propertiesOf(QList<int> ids) const;
    [[nodiscard]] QVariant propertyOf(int id, const QString& name) const;
    /// The numbers of the entries, 1 for the first.
    [[nodiscard]] QList<int> entries() const;
    [[nodiscard]] QAction* entry(int id) const;
    void handleEvent(const BusMenuEvent& event) const;

    const QMenu& m_menu;
};

} // namespace brisklog
