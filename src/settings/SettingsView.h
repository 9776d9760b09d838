#pragma once

#include "settings/AppSettings.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace brisklog {

/// The settings section: the preferences, and the way to the archive. It has no state of its own but whether
/// the archive is open; every choice is written at once.
class SettingsView final : public ObservableObject {
public:
    explicit SettingsView(AppSettings& appSettings) : settings(appSettings) {}

    AppSettings& settings;
    Published<bool> showingArchiveSheet{*this, false};
};

/// Where a word under the settings leads.
struct CreditLink {
    std::string_view caption;
    std::string_view address;
};

inline constexpr std::string_view creditLine = "Brisklog – Zeiterfassung und Rechnungen";

inline constexpr std::array creditLinks{CreditLink{"Website", "https://brisklog.example"},
                                        CreditLink{"Mail", "mailto:kontakt@brisklog.example"}};

} // namespace brisklog
