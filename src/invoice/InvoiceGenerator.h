#pragma once

#include "core/Project.h"
#include "foundation/Calendar.h"
#include "invoice/InvoiceSender.h"
#include "platform/PdfFacility.h"

#include <string>

namespace brisklog {

/// Turns all entries of a project into the bytes of a PDF report. Nothing is kept between two calls.
class InvoiceGenerator {
public:
    /// `now` is the date of the report, and what an entry without an end is counted up to.
    InvoiceGenerator(PdfFacility& pdf, InvoiceSender sender, Calendar calendar, Date now);

    /// The report; empty when it could not be made.
    [[nodiscard]] std::string generate(const Project& project) const;

private:
    PdfFacility& m_pdf;
    InvoiceSender m_sender;
    Calendar m_calendar;
    Date m_now;
};

} // namespace brisklog
