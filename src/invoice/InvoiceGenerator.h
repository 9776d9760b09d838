#pragma once

#include "core/Project.h"
#include "foundation/Calendar.h"
#include "platform/PdfFacility.h"

#include <string>

namespace brisklog {

class UserProfile;

/// Makes the entry report, no invoice: turns all entries of a project into the bytes of a PDF document.
/// Nothing is kept between two calls.
class InvoiceGenerator {
public:
    /// `now` is the date of the report, and what an entry without an end is counted up to.
    InvoiceGenerator(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now);

    /// The report; empty when it could not be made.
    [[nodiscard]] std::string generate(const Project& project) const;

private:
    PdfFacility& m_pdf;
    const UserProfile& m_profile;
    Calendar m_calendar;
    Date m_now;
};

} // namespace brisklog
