#pragma once

#include "platform/frontmost/WindowIdentity.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTemporaryFile>
#include <functional>
#include <optional>

namespace brisklog {

/// A script of ours in KWin, which tells over the bus which window is active, now and at each change. It is
/// loaded without waiting for anything, and unloaded with the value.
class KWinScript final : public QDBusVirtualObject {
public:
    struct Handlers {
        /// A window has become active; absent: none is.
        std::function<void(std::optional<WindowIdentity>)> told;
        /// KWin has not let the script run, or the script says nothing.
        std::function<void()> failed;
    };

    /// `kwin` is KWin's unique name on the bus: it alone is believed.
    KWinScript(QDBusConnection bus, QString kwin, Handlers handlers);
    ~KWinScript() override;

    [[nodiscard]] QString introspect(const QString& path) const override;
    [[nodiscard]] bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void load();
    void run(const QList<QDBusMessage>& ways);
    [[nodiscard]] QDBusMessage unloading() const;
    [[nodiscard]] QDBusMessage scripting(const QString& method) const;
    [[nodiscard]] QList<QDBusMessage> waysToRun(int script) const;
    [[nodiscard]] bool writeFile();

    QDBusConnection m_bus;
    QString m_kwin;
    Handlers m_handlers;
    /// KWin reads it some time after it was told to.
    QTemporaryFile m_file;
    bool m_wasHeard = false;
};

} // namespace brisklog
