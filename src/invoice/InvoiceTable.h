#pragma once

#include "core/TimeEntry.h"
#include "foundation/Calendar.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brisklog {

/// When an invoice is made.
struct InvoiceDate {
    /// Entries without an end count up to this, too.
    Date now;
    /// All dates are shown by it.
    Calendar calendar;
};

/// An entry as an invoice bills it.
struct BilledEntry {
    const TimeEntry& entry;
    std::optional<double> projectRate;
    const InvoiceDate& date;
};

/// Everything that defines a column of an invoice's table.
struct InvoiceColumn {
    /// Texts are left-aligned and may be shortened; numbers are right-aligned and never shortened.
    enum class Content { text, number };

    const char* heading;
    /// Left edge and width as fractions of the table's width.
    double left;
    double width;
    Content content;
    /// The cell's text in an entry's row.
    std::string (*cell)(const BilledEntry& billed);
};

/// From left to right.
[[nodiscard]] std::span<const InvoiceColumn> invoiceColumns();

/// A text for each column.
using InvoiceCells = std::vector<std::string>;

struct InvoiceTable {
    std::vector<InvoiceCells> rows;
    std::string total;
};

/// A row for each entry and their sum. An entry's own rate overrides the project's; without either it is 0.
[[nodiscard]] InvoiceTable invoiceTable(const std::vector<TimeEntry>& entries,
                                        std::optional<double> projectRate, const InvoiceDate& date);

} // namespace brisklog
