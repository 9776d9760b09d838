#pragma once

#include "platform/DesktopFixture.h"

#include <QDBusMessage>
#include <memory>
#include <vector>

namespace brisklog::test {

/// A session bus, and a real compositor without a screen in which programs can be started. Where it cannot be
/// started, the test is skipped with the reason.
class WaylandDesktop : public DesktopWithBus {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Both may skip the test: check IsSkipped() afterwards.
    void startSway();
    void startKWin();
    void endCompositor();

    /// Cuts all connections of this process to the compositor, as a compositor does to a client that does not
    /// read.
    static void dropConnections();

    /// Starts a program that opens one window under this application id; it ends with the desktop.
    QProcess& startWindow(const QString& applicationId);

    /// The same through sway's X server, under this window class; false when there is no X server.
    [[nodiscard]] bool startXWindow(const QString& windowClass);

    /// Brings the window with this application id to the front.
    void bringToFrontOnSway(const QString& applicationId);
    void bringToFrontOnKWin(const QString& applicationId);

    /// Runs a script in KWin, where it stays loaded.
    void loadIntoKWin(const QString& name, const QString& script);
    void unloadFromKWin(const QString& name);
    [[nodiscard]] bool isLoadedInKWin(const QString& name) const;

    /// Installs a desktop entry; `lines` follow the group header.
    void install(const std::string& id, const std::string& lines);

    [[nodiscard]] qint64 compositorProcess() const { return m_compositor.processId(); }

private:
    void startCompositor(const QString& program, const QStringList& arguments);
    QDBusMessage callScripting(const QString& method, const QVariantList& arguments) const;
    [[nodiscard]] bool isAnswering() const;
    [[nodiscard]] QString fileInRuntime(const QString& pattern) const;

    QString m_runtime;
    QProcess m_compositor;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};

} // namespace brisklog::test
