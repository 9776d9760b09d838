#pragma once

#include "invoice/InvoiceView.h"

#include <functional>
#include <optional>
#include <string>

namespace brisklog {

class Calendar;

/// What one row of the entry list shows; a value in spite of its name.
struct InvoiceEntryRowView {
    /// What the row's ground says about its entry.
    enum class Ground { invoiced, selected, plain };

    const InvoiceEntryStatus& entryStatus;
    /// The project's.
    std::optional<double> hourlyRate;
    std::function<void()> onToggle;

    /// The start's day as 15.11.26.
    [[nodiscard]] std::string date(const Calendar& calendar) const;

    /// Hours and minutes up to `now` where there is no end; "0h 0m" for what is no figure.
    [[nodiscard]] std::string duration(Date now) const;

    /// The earnings at the entry's own rate, else the project's; "--" without any.
    [[nodiscard]] std::string amount(Date now) const;

    /// An invoiced row stays tickable but its ground stays that of an invoiced one.
    [[nodiscard]] Ground ground() const;

    /// "Bereits abgerechnet"; empty for a row that was not invoiced.
    [[nodiscard]] std::string remark() const;

    /// The whole row as one text, for whoever cannot see it.
    [[nodiscard]] std::string spokenText(const Calendar& calendar, Date now) const;
};

} // namespace brisklog
