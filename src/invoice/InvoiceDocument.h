#pragma once

#include "core/Customer.h"
#include "core/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// What one invoice document is made from.
struct InvoiceDocument {
    Project project;
    std::optional<Customer> customer;
    std::string invoiceNumber;
    std::vector<TimeEntry> entries;
    std::string additionalNotes;
};

} // namespace brisklog
