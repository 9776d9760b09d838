#include "profile/UserProfile.h"

#include "platform/JsonFile.h"

#include <array>

namespace brisklog {
namespace {

constexpr std::size_t largestWrittenLogo = 2097152;
constexpr const char* profileFileName = "profile.json";
constexpr const char* logoFileName = "userLogo.png";

/// The profile file's content; the logo has a file of its own.
struct ProfileData {
    std::string companyName;
    std::string fullName;
    std::string address;
    std::string postalCode;
    std::string city;
    std::string country;
    std::string phone;
    std::string email;
    std::string website;
    std::string taxId;
    std::string vatId;
    std::string taxOffice;
    std::string bankName;
    std::string iban;
    std::string bic;
    double logoPositionX = 0;
    double logoPositionY = 0;
    double logoWidth = 0;
    double logoHeight = 0;
};

constexpr auto jsonFields(std::type_identity<ProfileData>) {
    return std::tuple{json::field<&ProfileData::companyName>("companyName"),
                      json::field<&ProfileData::fullName>("fullName"),
                      json::field<&ProfileData::address>("address"),
                      json::field<&ProfileData::postalCode>("postalCode"),
                      json::field<&ProfileData::city>("city"),
                      json::field<&ProfileData::country>("country"),
                      json::field<&ProfileData::phone>("phone"),
                      json::field<&ProfileData::email>("email"),
                      json::field<&ProfileData::website>("website"),
                      json::field<&ProfileData::taxId>("taxId"),
                      json::field<&ProfileData::vatId>("vatId"),
                      json::field<&ProfileData::taxOffice>("taxOffice"),
                      json::field<&ProfileData::bankName>("bankName"),
                      json::field<&ProfileData::iban>("iban"),
                      json::field<&ProfileData::bic>("bic"),
                      json::field<&ProfileData::logoPositionX>("logoPositionX"),
                      json::field<&ProfileData::logoPositionY>("logoPositionY"),
                      json::field<&ProfileData::logoWidth>("logoWidth"),
                      json::field<&ProfileData::logoHeight>("logoHeight")};
}

/// A property with its place in the file and the user-defaults key it had in earlier versions.
template <class T>
struct Detail {
    Published<T> UserProfile::*property;
    T ProfileData::*stored;
    const char* olderKey;
};

using Text = Detail<std::string>;
using Figure = Detail<double>;

/// In the order in which they are loaded and migrated.
constexpr std::array texts{
    Text{&UserProfile::companyName, &ProfileData::companyName, "profile_companyName"},
    Text{&UserProfile::fullName, &ProfileData::fullName, "profile_fullName"},
    Text{&UserProfile::address, &ProfileData::address, "profile_address"},
    Text{&UserProfile::postalCode, &ProfileData::postalCode, "profile_postalCode"},
    Text{&UserProfile::city, &ProfileData::city, "profile_city"},
    Text{&UserProfile::country, &ProfileData::country, "profile_country"},
    Text{&UserProfile::phone, &ProfileData::phone, "profile_phone"},
    Text{&UserProfile::email, &ProfileData::email, "profile_email"},
    Text{&UserProfile::website, &ProfileData::website, "profile_website"},
    Text{&UserProfile::taxId, &ProfileData::taxId, "profile_taxId"},
    Text{&UserProfile::vatId, &ProfileData::vatId, "profile_vatId"},
    // Earlier versions knew no tax office.
    Text{&UserProfile::taxOffice, &ProfileData::taxOffice, nullptr},
    Text{&UserProfile::bankName, &ProfileData::bankName, "profile_bankName"},
    Text{&UserProfile::iban, &ProfileData::iban, "profile_iban"},
    Text{&UserProfile::bic, &ProfileData::bic, "profile_bic"},
};

constexpr std::array figures{
    Figure{&UserProfile::logoPositionX, &ProfileData::logoPositionX, "profile_logoPositionX"},
    Figure{&UserProfile::logoPositionY, &ProfileData::logoPositionY, "profile_logoPositionY"},
    Figure{&UserProfile::logoWidth, &ProfileData::logoWidth, "profile_logoWidth"},
    Figure{&UserProfile::logoHeight, &ProfileData::logoHeight, "profile_logoHeight"},
};

JsonFile<ProfileData> profileFile(const std::filesystem::path& path) {
    return {path, json::Layout::pretty, Durability::leftToSystem};
}

std::optional<std::string> olderValue(const UserDefaults& defaults, const Text& text) {
    return text.olderKey ? textValue(defaults, text.olderKey) : std::nullopt;
}

std::optional<double> olderValue(const UserDefaults& defaults, const Figure& figure) {
    return numberValue(defaults, figure.olderKey);
}

/// Takes over what the user defaults hold; true when there was anything.
template <class Details>
bool migrate(UserDefaults& defaults, UserProfile& profile, const Details& details) {
    bool migrated = false;
    for (const auto& detail : details) {
        const auto value = olderValue(defaults, detail);
        if (!value)
            continue;
        profile.*detail.property = *value;
        defaults.removeValue(detail.olderKey);
        migrated = true;
    }
    return migrated;
}

std::string inBytes(const std::string& bytes) { return "(" + std::to_string(bytes.size()) + " Bytes)"; }

} // namespace

UserProfile::UserProfile(const ProfilePlatform& platform) : m_platform(platform) {
    loadProfileData();
    loadLogoData();
    migrateFromUserDefaults();
}

void UserProfile::loadLogoFromFile() {
    if (m_platform.logoPicker == nullptr)
        return;
    m_platform.logoPicker->present("Logo auswählen", [this](std::string bytes) {
        logoData = std::move(bytes);
        m_platform.logoPicker->close();
    });
}

Result<std::filesystem::path> UserProfile::fileInOurFolder(const char* name) {
    const auto applicationSupport = m_platform.files.applicationSupportFolder();
    if (!applicationSupport)
        return Error{"no application support folder: HOME is not set"};
    const auto folder = *applicationSupport / "Pennavo";
    if (const auto made = m_platform.files.createFolder(folder); made.failed())
        return made.error();
    return folder / name;
}

void UserProfile::loadProfileData() {
    const auto report = [this](const Error& error) {
        m_platform.log.print("Error loading profile data: " + error.description);
    };
    const auto path = fileInOurFolder(profileFileName);
    if (path.failed())
        return report(path.error());
    if (!m_platform.files.exists(path.value()))
        return;
    const auto loaded = profileFile(path.value()).load(m_platform.files, m_platform.log);
    if (loaded.failed())
        return report(loaded.error());
    // Each assignment deliberately saves like any other write.
    for (const auto& text : texts)
        this->*text.property = loaded.value().*text.stored;
    for (const auto& figure : figures)
        this->*figure.property = loaded.value().*figure.stored;
}

void UserProfile::saveProfileData() {
    ProfileData data;
    for (const auto& text : texts)
        data.*text.stored = this->*text.property;
    for (const auto& figure : figures)
        data.*figure.stored = this->*figure.property;
    const auto path = fileInOurFolder(profileFileName);
    const auto saved =
        path.failed() ? Result<Done>(path.error()) : profileFile(path.value()).save(m_platform.files, data);
    if (saved.failed())
        m_platform.log.print("Error saving profile data: " + saved.error().description);
}

void UserProfile::loadLogoData() {
    const auto path = fileInOurFolder(logoFileName);
    if (path.succeeded() && !m_platform.files.exists(path.value())) {
        logoData = std::nullopt;
        return;
    }
    auto bytes = path.failed() ? Result<std::string>(path.error()) : m_platform.files.read(path.value());
    if (bytes.failed()) {
        m_platform.log.print("Fehler beim Laden des Logos: " + bytes.error().description);
        // Deliberately like removing the logo: what cannot be read does not stay behind.
        logoData = std::nullopt;
        return;
    }
    logoData = std::move(bytes).value();
}

void UserProfile::saveLogoData() {
    // Earlier versions kept the logo here. It is deliberately dropped, not taken over.
    m_platform.userDefaults.removeValue("profile_logoData");
    if (!logoData.get())
        return removeLogo();
    if (logoData.get()->size() > largestWrittenLogo) {
        m_platform.log.print("Logo ist zu groß " + inBytes(*logoData.get()) + ". Wird nicht gespeichert.");
        return;
    }
    writeLogo(*logoData.get());
}

void UserProfile::writeLogo(const std::string& bytes) {
    const auto path = fileInOurFolder(logoFileName);
    const auto written = path.failed()
                             ? Result<Done>(path.error())
                             : m_platform.files.replace(path.value(), bytes, Durability::leftToSystem);
    if (written.failed())
        m_platform.log.print("Fehler beim Speichern des Logos: " + written.error().description);
    else
        m_platform.log.print("Logo erfolgreich in Datei gespeichert: " + path.value().string() + " " +
                             inBytes(bytes));
}

void UserProfile::removeLogo() {
    const auto path = fileInOurFolder(logoFileName);
    if (path.succeeded() && !m_platform.files.exists(path.value()))
        return;
    const auto removed = path.failed() ? Result<Done>(path.error()) : m_platform.files.remove(path.value());
    m_platform.log.print(removed.failed()
                             ? "Fehler beim Löschen der Logo-Datei: " + removed.error().description
                             : "Logo-Datei gelöscht");
}

void UserProfile::migrateFromUserDefaults() {
    bool migrated = migrate(m_platform.userDefaults, *this, texts);
    migrated |= migrate(m_platform.userDefaults, *this, figures);
    if (migrated)
        saveProfileData();
}

} // namespace brisklog
