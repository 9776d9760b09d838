#include "invoice/InvoiceEntryRowView.h"

#include "foundation/GermanFormat.h"

namespace brisklog {

std::string InvoiceEntryRowView::date(const Calendar& calendar) const {
    return format::date(entryStatus.entry.startTime, format::DateForm::shortDate, calendar);
}

std::string InvoiceEntryRowView::duration(Date now) const {
    return format::duration(entryStatus.entry.duration(now), "0h 0m");
}

std::string InvoiceEntryRowView::amount(Date now) const {
    return entryStatus.entry.formattedEarnings(hourlyRate, now);
}

InvoiceEntryRowView::Ground InvoiceEntryRowView::ground() const {
    if (entryStatus.isInvoiced)
        return Ground::invoiced;
    return entryStatus.isSelected ? Ground::selected : Ground::plain;
}

std::string InvoiceEntryRowView::remark() const {
    return entryStatus.isInvoiced ? "Bereits abgerechnet" : "";
}

std::string InvoiceEntryRowView::spokenText(const Calendar& calendar, Date now) const {
    std::string text = date(calendar);
    for (const std::string& part : {entryStatus.entry.taskName, duration(now), amount(now), remark()})
        if (!part.empty())
            text += ", " + part;
    return text;
}

} // namespace brisklog
