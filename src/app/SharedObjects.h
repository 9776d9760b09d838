#pragma once

#include "profile/UserProfile.h"
#include "settings/AppSettings.h"

#include <optional>

namespace brisklog {

/// The process-wide objects, each made on first use. They are asked for in the shell alone; everyone else is
/// handed a reference.
class SharedObjects {
public:
    SharedObjects(const SettingsPlatform& settings, const ProfilePlatform& profile)
        : m_settingsPlatform(settings), m_profilePlatform(profile) {}

    [[nodiscard]] AppSettings& settings() {
        if (!m_settings)
            m_settings.emplace(m_settingsPlatform);
        return *m_settings;
    }

    [[nodiscard]] UserProfile& profile() {
        if (!m_profile)
            m_profile.emplace(m_profilePlatform);
        return *m_profile;
    }

private:
    SettingsPlatform m_settingsPlatform;
    ProfilePlatform m_profilePlatform;
    std::optional<AppSettings> m_settings;
    std::optional<UserProfile> m_profile;
};

} // namespace brisklog
