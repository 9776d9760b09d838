#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "invoice/DocumentExport.h"

#include <string>

namespace brisklog {

class UserProfile;

/// Makes the entry report, not an invoice: turns all entries of a project into the bytes of a PDF document.
/// Keeps no state between calls.
class InvoiceGenerator {
public:
    /// `now` is the date of the report; entries without an end count up to it.
    InvoiceGenerator(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now);

    /// The report's bytes; empty when it could not be made.
    [[nodiscard]] std::string generate(const Project& project) const;

private:
    PdfFacility& m_pdf;
    const UserProfile& m_profile;
    Calendar m_calendar;
    Date m_now;
};

/// Asks where to save the report of the project's entries and writes it there once the user has chosen. The
/// report shows the project as it is at that moment, or as it was before if it was deleted meanwhile.
void exportReport(const TimeTrackingStore& store, const Project& project,
                  const DocumentFacilities& facilities);

} // namespace brisklog
