#pragma once

#include "support/TemporaryHome.h"

#include <QDBusConnection>
#include <QProcess>
#include <functional>
#include <gtest/gtest.h>

namespace brisklog::test {

/// How long, in milliseconds, a test waits for another program.
inline constexpr int patience = 20000;

/// Handles everything pending until the condition holds; false when it does not within some seconds.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

/// An application on the offscreen platform in a home of its own, without a session bus.
class Desktop : public ::testing::Test {
protected:
    Desktop();

    TemporaryHome home;
};

/// A session bus of its own, on which a stand-in for the desktop's portal can be started.
class DesktopWithBus : public Desktop {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the stand-in; it behaves as the words tell it and writes down each call it gets.
    void startPortal(const QStringList& behaviour);

    /// Ends it at once.
    void killPortal();

    /// Ends the bus itself.
    void killBus();

    /// The calls it got, one a line.
    [[nodiscard]] std::string calls() const;

    [[nodiscard]] QDBusConnection bus() const { return QDBusConnection(QStringLiteral("test")); }

private:
    QProcess m_daemon;
    QProcess m_portal;
};

} // namespace brisklog::test
