#pragma once

#include "platform/Appearance.h"
#include "platform/Fatal.h"
#include "platform/StoredProperties.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace brisklog {

// The choices among the settings. An option's raw value is both the label shown for it and what files hold:
// existing files would lose an option whose spelling changed.

template <class Option>
struct RawValue {
    Option option;
    std::string_view text;
};

template <class Option>
RawValue(Option, const char*) -> RawValue<Option>;

/// All cases of an option with their raw values, in the order in which they are offered.
template <class Option>
inline constexpr std::array<RawValue<Option>, 0> rawValues{};

/// Appearance chosen by the user.
using ColorSchemeOption = ColorScheme;

template <>
inline constexpr std::array rawValues<ColorSchemeOption>{RawValue{ColorSchemeOption::light, "Hell"},
                                                         RawValue{ColorSchemeOption::dark, "Dunkel"}};

/// Grid for recorded times. Kept for a later version: it has no effect yet.
enum class TimeRoundingOption { none, fiveMinutes, tenMinutes, fifteenMinutes };

template <>
inline constexpr std::array rawValues<TimeRoundingOption>{
    RawValue{TimeRoundingOption::none, "Keine Rundung"},
    RawValue{TimeRoundingOption::fiveMinutes, "5 Minuten"},
    RawValue{TimeRoundingOption::tenMinutes, "10 Minuten"},
    RawValue{TimeRoundingOption::fifteenMinutes, "15 Minuten"}};

/// Direction of rounding on invoices. Kept for a later version: it has no effect yet.
enum class InvoiceRoundingOption { none, roundUp, roundDown, roundNearest };

template <>
inline constexpr std::array rawValues<InvoiceRoundingOption>{
    RawValue{InvoiceRoundingOption::none, "Exakte Zeiten"},
    RawValue{InvoiceRoundingOption::roundUp, "Aufrunden"},
    RawValue{InvoiceRoundingOption::roundDown, "Abrunden"},
    RawValue{InvoiceRoundingOption::roundNearest, "Auf nächste Einheit runden"}};

template <class Option>
concept SettingsOption = !rawValues<Option>.empty();

template <SettingsOption Option>
[[nodiscard]] std::string_view jsonText(Option option) {
    const auto found = std::ranges::find(rawValues<Option>, option, &RawValue<Option>::option);
    if (found == rawValues<Option>.end())
        stopProgram("a setting's option has no text");
    return found->text;
}

/// Sets the option with exactly that raw value; false for any other text.
template <SettingsOption Option>
[[nodiscard]] bool fromJsonText(std::string_view text, Option& option) {
    const auto found = std::ranges::find(rawValues<Option>, text, &RawValue<Option>::text);
    if (found == rawValues<Option>.end())
        return false;
    option = found->option;
    return true;
}

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
