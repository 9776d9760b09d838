// app_settings.json.

#include "LoadedFile.h"

#include "settings/AppSettings.h"

#include <tuple>

namespace brisklog::fuzz {
namespace {

struct LoadedSettings {
    static auto valuesFrom(Files& files, UserDefaults& defaults, Log& log) {
        const AppSettings settings({.files = files, .userDefaults = defaults, .log = log});
        return std::tuple(settings.colorScheme.get(), settings.launchAtStartup.get(),
                          settings.startMinimized.get(), settings.openLastProject.get(),
                          settings.timeRounding.get(), settings.invoiceRounding.get());
    }
};

} // namespace

void tryInput(std::string_view bytes) { tryFile<LoadedSettings>("/documents/app_settings.json", bytes); }

} // namespace brisklog::fuzz
