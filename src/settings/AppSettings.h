#pragma once

#include "platform/StoredProperties.h"
#include "settings/SettingsOptions.h"

namespace brisklog {

/// The outside world as the settings need it.
struct SettingsPlatform {
    Files& files;
    UserDefaults& userDefaults;
    Log& log;
};

/// The user's preferences. Every write to one of them, even of an equal value, rewrites "app_settings.json"
/// in the documents folder before it returns; if that fails, one line is printed and the value stays in
/// memory.
class AppSettings final : public ObservableObject {
public:
    /// Loads the file, then takes over what earlier versions kept in the user defaults. Stops the program
    /// when there is no documents folder.
    explicit AppSettings(const SettingsPlatform& platform);

    Published<ColorSchemeOption> colorScheme{*this, ColorSchemeOption::light, savingHook()};
    // The next three are kept for a later version: no screen shows them and nothing acts on them.
    Published<bool> launchAtStartup{*this, false, savingHook()};
    Published<bool> startMinimized{*this, false, savingHook()};
    Published<bool> openLastProject{*this, true, savingHook()};
    Published<TimeRoundingOption> timeRounding{*this, TimeRoundingOption::none, savingHook()};
    Published<InvoiceRoundingOption> invoiceRounding{*this, InvoiceRoundingOption::none, savingHook()};

private:
    [[nodiscard]] Published<bool>::Hook savingHook() {
        return [this] { saveSettings(); };
    }

    void loadSettings();
    void saveSettings();
    void migrateFromUserDefaults();

    SettingsPlatform m_platform;
    std::filesystem::path m_path;
};

constexpr auto storedProperties(std::type_identity<AppSettings>) {
    return std::tuple{stored<&AppSettings::colorScheme>("colorScheme", "colorScheme"),
                      stored<&AppSettings::launchAtStartup>("launchAtStartup", "launchAtStartup"),
                      stored<&AppSettings::startMinimized>("startMinimized", "startMinimized"),
                      stored<&AppSettings::openLastProject>("openLastProject", "openLastProject"),
                      stored<&AppSettings::timeRounding>("timeRounding", "timeRounding"),
                      stored<&AppSettings::invoiceRounding>("invoiceRounding", "invoiceRounding")};
}

} // namespace brisklog
