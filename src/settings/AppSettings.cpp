#include "settings/AppSettings.h"

#include "platform/Fatal.h"
#include "platform/JsonFile.h"

#include <string>

namespace brisklog {
namespace {

/// The file's content. Options are kept as text: one that this version does not know spoils nothing else.
struct Settings {
    std::string colorScheme;
    bool launchAtStartup = false;
    bool startMinimized = false;
    bool openLastProject = false;
    std::string timeRounding;
    std::string invoiceRounding;
};

constexpr auto jsonFields(std::type_identity<Settings>) {
    return std::tuple{json::field<&Settings::colorScheme>("colorScheme"),
                      json::field<&Settings::launchAtStartup>("launchAtStartup"),
                      json::field<&Settings::startMinimized>("startMinimized"),
                      json::field<&Settings::openLastProject>("openLastProject"),
                      json::field<&Settings::timeRounding>("timeRounding"),
                      json::field<&Settings::invoiceRounding>("invoiceRounding")};
}

JsonFile<Settings> settingsFile(const std::filesystem::path& path) {
    return {path, json::Layout::pretty, Durability::leftToSystem};
}

std::filesystem::path pathIn(const std::optional<std::filesystem::path>& documentsFolder) {
    if (!documentsFolder)
        stopProgram("no documents folder: HOME is not set");
    return *documentsFolder / "app_settings.json";
}

template <class Option>
void assignKnown(Published<Option>& property, std::string_view text) {
    if (const auto option = optionWithRawValue<Option>(text))
        property = *option;
}

} // namespace

AppSettings::AppSettings(const SettingsPlatform& platform)
    : m_platform(platform), m_path(pathIn(platform.files.documentsFolder())) {
    loadSettings();
    migrateFromUserDefaults();
}

void AppSettings::loadSettings() {
    if (!m_platform.files.exists(m_path))
        return;
    const auto loaded = settingsFile(m_path).load(m_platform.files, m_platform.log);
    if (loaded.failed()) {
        m_platform.log.print("Error loading settings: " + loaded.error().description);
        return;
    }
    // Each assignment rewrites the file. That is deliberate: it replaces on disk what this version does not
    // know.
    const Settings& settings = loaded.value();
    assignKnown(colorScheme, settings.colorScheme);
    launchAtStartup = settings.launchAtStartup;
    startMinimized = settings.startMinimized;
    openLastProject = settings.openLastProject;
    assignKnown(timeRounding, settings.timeRounding);
    assignKnown(invoiceRounding, settings.invoiceRounding);
}

void AppSettings::saveSettings() {
    const Settings settings{.colorScheme = std::string(rawValue(colorScheme)),
                            .launchAtStartup = launchAtStartup,
                            .startMinimized = startMinimized,
                            .openLastProject = openLastProject,
                            .timeRounding = std::string(rawValue(timeRounding)),
                            .invoiceRounding = std::string(rawValue(invoiceRounding))};
    if (const auto saved = settingsFile(m_path).save(m_platform.files, settings); saved.failed())
        m_platform.log.print("Error saving settings: " + saved.error().description);
}

template <class Option>
bool AppSettings::migrateOption(const char* key, Published<Option>& property) {
    const auto text = textValue(m_platform.userDefaults, key);
    const auto option = optionWithRawValue<Option>(text.value_or(""));
    if (!option)
        return false;
    property = *option;
    m_platform.userDefaults.removeValue(key);
    return true;
}

bool AppSettings::migrateTruth(const char* key, Published<bool>& property) {
    const auto truth = truthValue(m_platform.userDefaults, key);
    if (!truth)
        return false;
    property = *truth;
    m_platform.userDefaults.removeValue(key);
    return true;
}

void AppSettings::migrateFromUserDefaults() {
    bool migrated = migrateOption("colorScheme", colorScheme);
    migrated |= migrateTruth("launchAtStartup", launchAtStartup);
    migrated |= migrateTruth("startMinimized", startMinimized);
    migrated |= migrateTruth("openLastProject", openLastProject);
    migrated |= migrateOption("timeRounding", timeRounding);
    migrated |= migrateOption("invoiceRounding", invoiceRounding);
    if (migrated)
        saveSettings();
}

} // namespace brisklog
