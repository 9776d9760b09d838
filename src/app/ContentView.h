#pragma once

#include "core/TimeTrackingStore.h"
#include "settings/AppSettings.h"

#include <array>
#include <string_view>

namespace brisklog {

/// One of the four sections, in the order of the navigation bar.
struct Section {
    int number;
    std::string_view symbol;
    std::string_view label;
};

inline constexpr std::array sections{
    Section{0, "chart.bar.xaxis", "Dashboard"}, Section{1, "timer", "Zeiterfassung"},
    Section{2, "person.fill", "Profil"}, Section{3, "gearshape.fill", "Einstellungen"}};

inline constexpr int dashboardSection = 0;

/// The section with the projects and timers, shown first.
inline constexpr int projectsSection = 1;
inline constexpr int profileSection = 2;
inline constexpr int settingsSection = 3;

/// The main view: which section is shown, and the program's only store.
class ContentView final : public ObservableObject {
public:
    ContentView(int initialSection, AppSettings& appSettings, const StorePlatform& platform);

    Published<int> selectedSection;
    AppSettings& settings;
    TimeTrackingStore timeStore;

    /// The number of the section shown; the projects section for any invalid value.
    [[nodiscard]] int shownSection() const;

    /// The scheme for the whole main view, overriding the desktop's appearance.
    [[nodiscard]] ColorScheme colorScheme() const { return settings.colorScheme; }
};

} // namespace brisklog
