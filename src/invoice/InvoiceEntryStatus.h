#pragma once

#include "core/TimeEntry.h"

namespace brisklog {

/// One row of the invoice sheet's entry list.
struct InvoiceEntryStatus {
    /// Equal to `entry.id`.
    Uuid id;
    /// A copy of the project's entry.
    TimeEntry entry;
    /// Ticked for this invoice.
    bool isSelected = false;
    /// Invoiced before the sheet was shown, or by it.
    bool isInvoiced = false;

    bool operator==(const InvoiceEntryStatus&) const = default;
};

} // namespace brisklog
