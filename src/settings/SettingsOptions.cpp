#include "settings/SettingsOptions.h"

#include <cstdlib>

namespace brisklog {

std::string_view rawValue(ColorSchemeOption option) {
    switch (option) {
    case ColorSchemeOption::light:
        return "Hell";
    case ColorSchemeOption::dark:
        return "Dunkel";
    }
    std::abort();
}

std::string_view rawValue(TimeRoundingOption option) {
    switch (option) {
    case TimeRoundingOption::none:
        return "Keine Rundung";
    case TimeRoundingOption::fiveMinutes:
        return "5 Minuten";
    case TimeRoundingOption::tenMinutes:
        return "10 Minuten";
    case TimeRoundingOption::fifteenMinutes:
        return "15 Minuten";
    }
    std::abort();
}

std::string_view rawValue(InvoiceRoundingOption option) {
    switch (option) {
    case InvoiceRoundingOption::none:
        return "Exakte Zeiten";
    case InvoiceRoundingOption::roundUp:
        return "Aufrunden";
    case InvoiceRoundingOption::roundDown:
        return "Abrunden";
    case InvoiceRoundingOption::roundNearest:
        return "Auf nächste Einheit runden";
    }
    std::abort();
}

} // namespace brisklog
