#pragma once

#include "foundation/Date.h"
#include "foundation/JsonCoding.h"
#include "foundation/Uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// What is kept of an invoice once it has been issued.
struct ArchivedInvoice {
    Uuid id;
    /// As printed, possibly empty.
    std::string invoiceNumber;
    Date date;
    /// Absent when the invoice was issued without a customer.
    std::optional<std::string> customerName;
    /// The time entries it covers.
    std::vector<Uuid> entryIDs;

    bool operator==(const ArchivedInvoice&) const = default;
};

constexpr auto jsonFields(std::type_identity<ArchivedInvoice>) {
    return std::tuple{json::field<&ArchivedInvoice::id>("id"),
                      json::field<&ArchivedInvoice::invoiceNumber>("invoiceNumber"),
                      json::field<&ArchivedInvoice::date>("date"),
                      json::field<&ArchivedInvoice::customerName>("customerName"),
                      json::field<&ArchivedInvoice::entryIDs>("entryIDs")};
}

} // namespace brisklog
