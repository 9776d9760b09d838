#pragma once

#include "platform/StoredProperties.h"
#include "profile/LogoPickerPresenter.h"

#include <filesystem>
#include <optional>
#include <string>

namespace brisklog {

/// The outside world as the profile needs it.
struct ProfileServices {
    Files& files;
    UserDefaults& userDefaults;
    Log& log;
    /// Null where no window can be shown.
    LogoPickerPresenter* logoPicker = nullptr;
};

/// The user's own business details, the sender of every invoice. Before it returns, every write of a text or
/// number rewrites "profile.json" and every write of the logo rewrites or removes "userLogo.png", both in the
/// folder `Pennavo` of the application-support folder; a failure prints one line and the value stays in
/// memory.
class UserProfile final : public ObservableObject {
public:
    /// Loads both files, then migrates what earlier versions kept in the user defaults.
    explicit UserProfile(const ProfileServices& services);

    Published<std::string> companyName{*this, "", profileHook()};
    Published<std::string> fullName{*this, "", profileHook()};
    /// Street and number.
    Published<std::string> address{*this, "", profileHook()};
    Published<std::string> postalCode{*this, "", profileHook()};
    Published<std::string> city{*this, "", profileHook()};
    Published<std::string> country{*this, "Deutschland", profileHook()};
    Published<std::string> phone{*this, "", profileHook()};
    Published<std::string> email{*this, "", profileHook()};
    Published<std::string> website{*this, "", profileHook()};
    Published<std::string> taxId{*this, "", profileHook()};
    Published<std::string> vatId{*this, "", profileHook()};
    Published<std::string> taxOffice{*this, "", profileHook()};
    Published<std::string> bankName{*this, "", profileHook()};
    Published<std::string> iban{*this, "", profileHook()};
    Published<std::string> bic{*this, "", profileHook()};
    /// The bytes of the logo's image file. A logo over 2 MiB is used until the program ends, but not saved.
    Published<std::optional<std::string>> logoData{*this, std::nullopt, [this] { saveLogoData(); }};
    // The logo's place on the invoice page, in points; saved, but invoices are drawn without it.
    Published<double> logoPositionX{*this, 50, profileHook()};
    Published<double> logoPositionY{*this, 50, profileHook()};
    Published<double> logoWidth{*this, 200, profileHook()};
    Published<double> logoHeight{*this, 100, profileHook()};

    /// Opens the logo picker; choosing an image there sets the logo and closes the picker.
    void loadLogoFromFile();

private:
    [[nodiscard]] Published<std::string>::Hook profileHook() {
        return [this] { saveProfileData(); };
    }

    /// The file's path in our folder, which is created when missing.
    [[nodiscard]] Result<std::filesystem::path> fileInOurFolder(const char* name);
    void loadProfileData();
    void loadLogoData();
    void saveProfileData();
    void saveLogoData();
    void writeLogo(const std::string& bytes);
    void removeLogo();
    void migrateFromUserDefaults();

    ProfileServices m_services;
};

constexpr auto storedProperties(std::type_identity<UserProfile>) {
    return std::tuple{stored<&UserProfile::companyName>("companyName", "profile_companyName"),
                      stored<&UserProfile::fullName>("fullName", "profile_fullName"),
                      stored<&UserProfile::address>("address", "profile_address"),
                      stored<&UserProfile::postalCode>("postalCode", "profile_postalCode"),
                      stored<&UserProfile::city>("city", "profile_city"),
                      stored<&UserProfile::country>("country", "profile_country"),
                      stored<&UserProfile::phone>("phone", "profile_phone"),
                      stored<&UserProfile::email>("email", "profile_email"),
                      stored<&UserProfile::website>("website", "profile_website"),
                      stored<&UserProfile::taxId>("taxId", "profile_taxId"),
                      stored<&UserProfile::vatId>("vatId", "profile_vatId"),
                      // Earlier versions had no tax office.
                      stored<&UserProfile::taxOffice>("taxOffice"),
                      stored<&UserProfile::bankName>("bankName", "profile_bankName"),
                      stored<&UserProfile::iban>("iban", "profile_iban"),
                      stored<&UserProfile::bic>("bic", "profile_bic"),
                      stored<&UserProfile::logoPositionX>("logoPositionX", "profile_logoPositionX"),
                      stored<&UserProfile::logoPositionY>("logoPositionY", "profile_logoPositionY"),
                      stored<&UserProfile::logoWidth>("logoWidth", "profile_logoWidth"),
                      stored<&UserProfile::logoHeight>("logoHeight", "profile_logoHeight")};
}

} // namespace brisklog
