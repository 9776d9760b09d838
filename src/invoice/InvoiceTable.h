#pragma once

#include "core/TimeEntry.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brisklog {

/// An entry as an invoice bills it.
struct BilledEntry {
    const TimeEntry& entry;
    std::optional<double> projectRate;
    /// Where an entry without an end is counted up to.
    Date now;
};

/// All there is to a column of an invoice's table.
struct InvoiceColumn {
    /// Texts stand at the column's left and are shortened, numbers end at its right and never are.
    enum class Content { text, number };

    const char* heading;
    /// Left edge and width as parts of the table's width.
    double left;
    double width;
    Content content;
    /// What stands in an entry's row.
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

/// A row for each entry and their sum. An entry's own rate goes before the project's; without any it is 0.
[[nodiscard]] InvoiceTable invoiceTable(const std::vector<TimeEntry>& entries,
                                        std::optional<double> projectRate, Date now);

} // namespace brisklog
