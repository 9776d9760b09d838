// archivedInvoices.json, and the dates that the archive shows.

#include "RoundTrip.h"

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"

namespace brisklog::fuzz {

namespace {

const Calendar calendar(QTimeZone("Europe/Berlin"));

} // namespace

void tryInput(std::string_view bytes) {
    const auto invoices = roundTripped<std::vector<ArchivedInvoice>>(bytes, json::Layout::compact);
    if (!invoices)
        return;
    for (const ArchivedInvoice& invoice : *invoices)
        for (const auto form : {format::DateForm::mediumDate, format::DateForm::longDate,
                                format::DateForm::monthAndYear, format::DateForm::weekday})
            requireShowable(format::date(invoice.date, form, calendar));
}

} // namespace brisklog::fuzz
