#pragma once

#include "profile/UserProfile.h"

#include <vector>

namespace brisklog {

/// A field of the profile form, bound to one property of the profile.
struct ProfileField {
    Published<std::string> UserProfile::*property;
    /// Shown in grey while the field is empty.
    std::string exampleText;
};

/// A row of the profile form: a label and the fields beside it.
struct ProfileRow {
    std::string label;
    std::vector<ProfileField> fields;
};

/// The form in which users enter what is printed on every invoice about themselves. It has no state of its
/// own: every keystroke changes the profile, which is in its file at once.
class ProfileView {
public:
    explicit ProfileView(UserProfile& profile) : m_profile(profile) {}

    [[nodiscard]] UserProfile& profile() const { return m_profile; }

    [[nodiscard]] static const std::vector<ProfileRow>& contactRows();
    [[nodiscard]] static const std::vector<ProfileRow>& taxAndBankRows();

    void selectLogo() { m_profile.loadLogoFromFile(); }

    /// Its file goes too.
    void removeLogo() { m_profile.logoData = std::nullopt; }

private:
    UserProfile& m_profile;
};

} // namespace brisklog
