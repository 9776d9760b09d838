#pragma once

#include "support/TemporaryHome.h"

#include <QDBusConnection>
#include <QProcess>
#include <functional>
#include <gtest/gtest.h>

namespace brisklog::test {

/// How long, in milliseconds, a test waits for another program.
inline constexpr int patience = 20000;

/// Processes events until the condition holds; false when it does not within `patience`.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

/// An application on the offscreen platform in a temporary home, without a session bus.
class Desktop : public ::testing::Test {
protected:
    Desktop();

    TemporaryHome home;
};

/// A desktop with a private session bus, on which a stand-in for the desktop's portal can be started.
class DesktopWithBus : public Desktop {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the stand-in, which behaves as these words say and logs every call.
    void startPortal(const QStringList& behaviour);

    void killPortal();

    void killBus();

    /// Starts another bus at the address of the one that was killed; `bus()` stays lost.
    void restartBus();

    /// The calls that the stand-in received, one per line.
    [[nodiscard]] std::string calls() const;

    [[nodiscard]] QDBusConnection bus() const { return QDBusConnection(QStringLiteral("test")); }

private:
    QProcess m_daemon;
    QProcess m_portal;
};

} // namespace brisklog::test
