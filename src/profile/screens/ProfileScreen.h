#pragma once

#include "profile/UserProfile.h"
#include "ui/sheets/Screen.h"

#include <optional>
#include <vector>

namespace brisklog {

class Button;
class Images;
class LayoutItem;
class LogoPlate;
class TextField;

/// The profile form: the logo and the sender's details printed on every invoice. Every keystroke changes the
/// profile, which is saved at once.
class ProfileScreen final : public Screen {
public:
    ProfileScreen(UserProfile& profile, const Images& images, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    struct FormField;
    struct FormRow;

    /// A text field and the property it shows.
    struct BoundField {
        TextField* field;
        Published<std::string>* property;
    };

    [[nodiscard]] QWidget* logoSection();
    [[nodiscard]] QWidget* contactSection();
    [[nodiscard]] QWidget* taxAndBankSection();
    [[nodiscard]] QWidget* fieldSection(const QString& title, const QString& symbol,
                                        const std::vector<FormRow>& rows);
    [[nodiscard]] LayoutItem row(const FormRow& row);
    [[nodiscard]] TextField* field(const FormRow& row, const FormField& field);

    UserProfile& m_profile;
    LogoPlate* m_logo;
    Button* m_removeLogo;
    std::optional<std::uint64_t> m_shownLogo;
    std::vector<BoundField> m_fields;
};

} // namespace brisklog
