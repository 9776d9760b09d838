#pragma once

#include "platform/bus/LastingBus.h"
#include "platform/frontmost/LoginSession.h"
#include "platform/frontmost/ScreenSavers.h"

#include <optional>

namespace brisklog {

/// Whether somebody can be working here at all.
class UserPresence {
public:
    virtual ~UserPresence() = default;

    virtual void beginWatching() = 0;
    virtual void endWatching() = 0;

    /// The screen is locked, or the machine is going to sleep. False when nobody tells, and when not
    /// watching.
    [[nodiscard]] virtual bool isAway() const = 0;

    /// What `isAway` said has been taken note of: the machine, which waits a little for that, may sleep now.
    virtual void confirm() = 0;
};

/// What the desktop's screen savers and the login manager tell.
class DesktopUserPresence final : public UserPresence {
public:
    void beginWatching() override;
    void endWatching() override;

    [[nodiscard]] bool isAway() const override {
        return (m_screenSavers && m_screenSavers->isActive()) ||
               (m_loginSession && m_loginSession->isLockedOrAsleep());
    }

    void confirm() override;

private:
    bool m_isWatching = false;
    /// The system bus is only connected to once it is needed.
    std::optional<LastingBus> m_sessionBus;
    std::optional<LastingBus> m_systemBus;
    std::optional<ScreenSavers> m_screenSavers;
    std::optional<LoginSession> m_loginSession;
};

} // namespace brisklog
