#pragma once

#include "core/Customer.h"
#include "core/Project.h"
#include "invoice/InvoiceTable.h"
#include "platform/PdfFacility.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

class UserProfile;

/// The content of one invoice.
struct InvoiceDocument {
    Project project;
    std::optional<Customer> customer;
    std::string invoiceNumber;
    std::vector<TimeEntry> selectedEntries;
    std::string additionalNotes;
};

/// Turns one invoice into the bytes of a PDF document. Keeps no state between calls.
class UpdatedInvoiceTemplate {
public:
    /// `now` is the date of the invoice; entries without an end count up to it.
    UpdatedInvoiceTemplate(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now);

    /// The document's bytes, with the entries sorted by start; empty when it could not be made.
    [[nodiscard]] std::string generate(InvoiceDocument invoice) const;

private:
    PdfFacility& m_pdf;
    const UserProfile& m_profile;
    InvoiceDate m_date;
};

/// Kept only as a name; nothing is drawn with it.
class InvoiceTemplate {};

/// Kept only as a name; nothing is drawn with it.
class NewInvoiceTemplate {};

} // namespace brisklog
