#include "platform/frontmost/UserPresence.h"

namespace brisklog {

void DesktopUserPresence::beginWatching() {
    if (m_isWatching)
        return;
    m_isWatching = true;
    m_sessionBus.emplace(QDBusConnection::SessionBus,
                         [this] { m_screenSavers.emplace(m_sessionBus->connection()); });
    m_systemBus.emplace(QDBusConnection::SystemBus,
                        [this] { m_loginSession.emplace(m_systemBus->connection()); });
    m_screenSavers.emplace(m_sessionBus->connection());
    m_loginSession.emplace(m_systemBus->connection());
}

void DesktopUserPresence::endWatching() {
    m_isWatching = false;
    m_screenSavers.reset();
    m_loginSession.reset();
    m_sessionBus.reset();
    m_systemBus.reset();
}

void DesktopUserPresence::confirm() {
    if (m_loginSession)
        m_loginSession->letSleep();
}

} // namespace brisklog
