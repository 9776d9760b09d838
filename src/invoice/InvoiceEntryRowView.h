#pragma once

#include "invoice/InvoiceView.h"

#include <functional>
#include <optional>
#include <string>

namespace brisklog {

class Calendar;

/// What one row of the entry list shows; a value, despite its name.
struct InvoiceEntryRowView {
    /// What the row's background says about its entry.
    enum class Ground { invoiced, selected, plain };

    const InvoiceEntryStatus& entryStatus;
    /// The project's rate.
    std::optional<double> hourlyRate;
    std::function<void()> onToggle;

    /// The day it started, as 15.11.26.
    [[nodiscard]] std::string date(const Calendar& calendar) const;

    /// Hours and minutes, up to `now` where there is no end; "0h 0m" where the duration is not finite.
    [[nodiscard]] std::string duration(Date now) const;

    /// The earnings at the entry's own rate, else the project's; "--" without a rate.
    [[nodiscard]] std::string amount(Date now) const;

    /// An invoiced row can still be ticked, but keeps the background of an invoiced one.
    [[nodiscard]] Ground ground() const;

    /// "Bereits abgerechnet"; empty for a row that has not been invoiced.
    [[nodiscard]] std::string remark() const;

    /// The whole row as one text, for screen readers.
    [[nodiscard]] std::string spokenText(const Calendar& calendar, Date now) const;
};

} // namespace brisklog
