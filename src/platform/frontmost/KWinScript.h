#pragma once

#include "platform/frontmost/FrontmostWindow.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTemporaryFile>
#include <functional>
#include <optional>

namespace brisklog {

/// A script of ours in KWin that reports over the bus which window is active, now and on each change. It is
/// loaded without waiting and unloaded on destruction.
class KWinScript final : public QDBusVirtualObject {
public:
    struct Report {
        InFront inFront;
        /// The uppermost window of another program; in the first report only.
        std::optional<InFront> behind;
    };

    struct Handlers {
        std::function<void(const Report&)> told;
        /// Called when KWin has not run the script or the script reports nothing.
        std::function<void()> failed;
    };

    /// `kwin` is KWin's unique name on the bus: messages from others are ignored.
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
    /// KWin reads the file some time after it has been told to.
    QTemporaryFile m_file;
    bool m_hasCalled = false;
};

} // namespace brisklog
