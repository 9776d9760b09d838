#pragma once

#include "core/Customer.h"
#include "core/Project.h"
#include "foundation/Calendar.h"
#include "platform/PdfFacility.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

class UserProfile;

/// What one invoice is made from.
struct InvoiceDocument {
    Project project;
    std::optional<Customer> customer;
    std::string invoiceNumber;
    std::vector<TimeEntry> selectedEntries;
    std::string additionalNotes;
};

/// Turns one invoice into the bytes of a PDF document. Nothing is kept between two calls.
class UpdatedInvoiceTemplate {
public:
    /// `now` is the date of the invoice, and what an entry without an end is counted up to.
    UpdatedInvoiceTemplate(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now);

    /// The document, its entries sorted by their start; empty when it could not be made.
    [[nodiscard]] std::string generate(InvoiceDocument invoice) const;

private:
    PdfFacility& m_pdf;
    const UserProfile& m_profile;
    Calendar m_calendar;
    Date m_now;
};

/// Holds a name; nothing is drawn through it.
class InvoiceTemplate {};

/// Holds a name; nothing is drawn through it.
class NewInvoiceTemplate {};

} // namespace brisklog
