#include "DesktopFixture.h"

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <fstream>
#include <iterator>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

const QString portalName = u"org.freedesktop.portal.Desktop"_s;

/// Makes the one application per process that the toolkit demands. It is never destroyed, because the
/// toolkit's own statics would be gone by then.
void ensureApplication() {
    static const bool isPlatformChosen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = isPlatformChosen ? 1 : 0;
    static char name[] = "brisklog-tests";
    static char* arguments[] = {name, nullptr};
    [[maybe_unused]] static const auto* const instance = new QApplication(count, arguments);
}

} // namespace

bool waitUntil(const std::function<bool()>& condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition() && elapsed.elapsed() < patience) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
}

Desktop::Desktop() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    ensureApplication();
}

void DesktopWithBus::SetUp() {
    m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
    ASSERT_TRUE(m_daemon.waitForReadyRead(patience)) << m_daemon.errorString().toStdString();
    const QString address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    ASSERT_TRUE(QDBusConnection::connectToBus(address, u"test"_s).isConnected());
}

void DesktopWithBus::TearDown() {
    QDBusConnection::disconnectFromBus(u"test"_s);
    for (QProcess* const process : {&m_portal, &m_daemon}) {
        process->kill();
        process->waitForFinished(patience);
    }
}

void DesktopWithBus::startPortal(const QStringList& behaviour) {
    const QString calls = QString::fromStdString((home.path() / "calls").string());
    m_portal.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_portal.start(u"/usr/bin/python3"_s,
                   QStringList{QStringLiteral(BRISKLOG_STAND_IN_PORTAL), calls} + behaviour);
    ASSERT_TRUE(waitUntil([this] { return bus().interface()->isServiceRegistered(portalName).value(); }));
}

void DesktopWithBus::killPortal() {
    m_portal.kill();
    m_portal.waitForFinished(patience);
    // The bus may notice its end a moment later; until then the next portal would seem to be running already.
    EXPECT_TRUE(waitUntil([this] { return !bus().interface()->isServiceRegistered(portalName).value(); }));
}

void DesktopWithBus::killBus() {
    m_daemon.kill();
    m_daemon.waitForFinished(patience);
}

void DesktopWithBus::restartBus() {
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").section(u',', 0, 0);
    m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s,
                                      u"--address="_s + address, u"--print-address"_s});
    ASSERT_TRUE(m_daemon.waitForReadyRead(patience)) << m_daemon.errorString().toStdString();
}

std::string DesktopWithBus::calls() const {
    std::ifstream file(home.path() / "calls");
    return {std::istreambuf_iterator(file), {}};
}

} // namespace brisklog::test
