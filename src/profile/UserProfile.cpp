#include "profile/UserProfile.h"

namespace brisklog {
namespace {

constexpr std::size_t largestWrittenLogo = 2097152;
constexpr const char* profileFileName = "profile.json";
constexpr const char* logoFileName = "userLogo.png";

std::string inBytes(const std::string& bytes) { return "(" + std::to_string(bytes.size()) + " Bytes)"; }

} // namespace

UserProfile::UserProfile(const ProfileServices& services) : m_services(services) {
    loadProfileData();
    loadLogoData();
    migrateFromUserDefaults();
}

void UserProfile::loadLogoFromFile() {
    if (m_services.logoPicker == nullptr)
        return;
    m_services.logoPicker->present("Logo auswählen", [this](std::string bytes) {
        logoData = std::move(bytes);
        m_services.logoPicker->close();
    });
}

Result<std::filesystem::path> UserProfile::fileInOurFolder(const char* name) {
    const auto applicationSupport = m_services.files.applicationSupportFolder();
    if (!applicationSupport)
        return Error{"no application support folder: HOME is not set"};
    const auto folder = *applicationSupport / "Pennavo";
    if (const auto made = m_services.files.createFolder(folder); made.failed())
        return made.error();
    return folder / name;
}

void UserProfile::loadProfileData() {
    const auto path = fileInOurFolder(profileFileName);
    // Each assignment deliberately saves, like any other write.
    const auto loaded = path.failed() ? Result<Done>(path.error())
                                      : loadProperties(*this, path.value(), m_services.files, m_services.log);
    if (loaded.failed())
        m_services.log.print("Error loading profile data: " + loaded.error().description);
}

void UserProfile::saveProfileData() {
    const auto path = fileInOurFolder(profileFileName);
    const auto saved =
        path.failed() ? Result<Done>(path.error()) : saveProperties(*this, path.value(), m_services.files);
    if (saved.failed())
        m_services.log.print("Error saving profile data: " + saved.error().description);
}

void UserProfile::loadLogoData() {
    const auto path = fileInOurFolder(logoFileName);
    if (path.succeeded() && !m_services.files.exists(path.value())) {
        logoData = std::nullopt;
        return;
    }
    auto bytes = path.failed() ? Result<std::string>(path.error()) : m_services.files.read(path.value());
    if (bytes.failed()) {
        m_services.log.print("Fehler beim Laden des Logos: " + bytes.error().description);
        // Deliberately removes the logo: an unreadable file is not kept.
        logoData = std::nullopt;
        return;
    }
    logoData = std::move(bytes).value();
}

void UserProfile::saveLogoData() {
    // Earlier versions kept the logo here. It is deliberately dropped, not migrated.
    m_services.userDefaults.removeValue("profile_logoData");
    if (!logoData.get())
        return removeLogo();
    if (logoData.get()->size() > largestWrittenLogo) {
        m_services.log.print("Logo ist zu groß " + inBytes(*logoData.get()) + ". Wird nicht gespeichert.");
        return;
    }
    writeLogo(*logoData.get());
}

void UserProfile::writeLogo(const std::string& bytes) {
    const auto path = fileInOurFolder(logoFileName);
    const auto written = path.failed()
                             ? Result<Done>(path.error())
                             : m_services.files.replace(path.value(), bytes, Durability::leftToSystem);
    if (written.failed())
        m_services.log.print("Fehler beim Speichern des Logos: " + written.error().description);
    else
        m_services.log.print("Logo erfolgreich in Datei gespeichert: " + path.value().string() + " " +
                             inBytes(bytes));
}

void UserProfile::removeLogo() {
    const auto path = fileInOurFolder(logoFileName);
    if (path.succeeded() && !m_services.files.exists(path.value()))
        return;
    const auto removed = path.failed() ? Result<Done>(path.error()) : m_services.files.remove(path.value());
    m_services.log.print(removed.failed()
                             ? "Fehler beim Löschen der Logo-Datei: " + removed.error().description
                             : "Logo-Datei gelöscht");
}

void UserProfile::migrateFromUserDefaults() {
    if (takeOverOlderValues(*this, m_services.userDefaults))
        saveProfileData();
}

} // namespace brisklog
