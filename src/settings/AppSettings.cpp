#include "settings/AppSettings.h"

#include "platform/Fatal.h"

namespace brisklog {
namespace {

std::filesystem::path pathIn(const std::optional<std::filesystem::path>& documentsFolder) {
    if (!documentsFolder)
        stopProgram("no documents folder: HOME is not set");
    return *documentsFolder / "app_settings.json";
}

} // namespace

AppSettings::AppSettings(const SettingsPlatform& platform)
    : m_platform(platform), m_path(pathIn(platform.files.documentsFolder())) {
    loadSettings();
    migrateFromUserDefaults();
}

void AppSettings::loadSettings() {
    // Each assignment rewrites the file. This is deliberate: it replaces everything in the file that this
    // version does not know.
    const auto loaded = loadProperties(*this, m_path, m_platform.files, m_platform.log);
    if (loaded.failed())
        m_platform.log.print("Error loading settings: " + loaded.error().description);
}

void AppSettings::saveSettings() {
    const auto saved = saveProperties(*this, m_path, m_platform.files);
    if (saved.failed())
        m_platform.log.print("Error saving settings: " + saved.error().description);
}

void AppSettings::migrateFromUserDefaults() {
    if (takeOverOlderValues(*this, m_platform.userDefaults))
        saveSettings();
}

} // namespace brisklog
