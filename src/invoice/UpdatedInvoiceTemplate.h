#pragma once

#include "core/Customer.h"
#include "core/Project.h"
#include "foundation/Calendar.h"
#include "invoice/InvoiceSender.h"
#include "platform/PdfFacility.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// Turns one invoice into the bytes of a PDF document. Nothing is kept between two calls.
class UpdatedInvoiceTemplate {
public:
    /// `now` is the date of the invoice, and what an entry without an end is counted up to.
    UpdatedInvoiceTemplate(PdfFacility& pdf, InvoiceSender sender, Calendar calendar, Date now);

    /// The document for the chosen entries, sorted by their start; empty when it could not be made.
    [[nodiscard]] std::string generate(const Project& project, const std::optional<Customer>& customer,
                                       const std::string& invoiceNumber,
                                       std::vector<TimeEntry> selectedEntries,
                                       const std::string& additionalNotes) const;

private:
    PdfFacility& m_pdf;
    InvoiceSender m_sender;
    Calendar m_calendar;
    Date m_now;
};

} // namespace brisklog
