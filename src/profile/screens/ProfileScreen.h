#pragma once

#include "profile/ProfileView.h"
#include "ui/sheets/Screen.h"

#include <optional>
#include <vector>

namespace brisklog {

class Images;
class LayoutItem;
class LogoPlate;
class TextField;

/// The profile form: the logo, and what is printed on every invoice about its sender.
class ProfileScreen final : public Screen {
public:
    ProfileScreen(UserProfile& profile, const Images& images, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    /// A text field and the property it shows.
    struct BoundField {
        TextField* field;
        Published<std::string> UserProfile::*property;
    };

    [[nodiscard]] QWidget* logoSection();
    [[nodiscard]] QWidget* fieldSection(const QString& title, const QString& symbol,
                                        const std::vector<ProfileRow>& rows);
    [[nodiscard]] LayoutItem row(const ProfileRow& row);
    [[nodiscard]] TextField* field(const ProfileRow& row, const ProfileField& field);

    ProfileView m_view;
    LogoPlate* m_logo;
    std::optional<std::uint64_t> m_shownLogo;
    std::vector<BoundField> m_fields;
};

} // namespace brisklog
