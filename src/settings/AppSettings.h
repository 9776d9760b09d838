#pragma once

#include "foundation/Observable.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"
#include "settings/SettingsOptions.h"

#include <filesystem>

namespace brisklog {

/// The outside world as the settings need it.
struct SettingsPlatform {
    Files& files;
    UserDefaults& userDefaults;
    Log& log;
};

/// The user's preferences. Every write of one of them, equal or not, rewrites "app_settings.json" in the
/// documents folder before it returns; a failure is one printed line and the value stays in memory.
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
    /// Takes over one value from the user defaults; false when there is none that fits.
    template <class Option>
    bool migrateOption(const char* key, Published<Option>& property);
    bool migrateTruth(const char* key, Published<bool>& property);

    SettingsPlatform m_platform;
    std::filesystem::path m_path;
};

} // namespace brisklog
