#include "invoice/InvoiceTexts.h"

#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"
#include "foundation/Text.h"
#include "invoice/SenderLines.h"

namespace brisklog {
namespace {

constexpr const char* noAmount = "0,00\u00A0€";
constexpr const char* noDuration = "0\u00A0h 0\u00A0min";
/// Calendar days from the invoice's date to the date it is payable by.
constexpr int paymentTermInDays = 14;

std::vector<std::string> recipientLines(const Customer& customer) {
    std::vector<std::string> lines;
    addLine(lines, customer.company);
    addLine(lines, joined(customer.firstName, customer.name));
    addLine(lines, customer.address);
    addLine(lines, customer.cityLine());
    return lines;
}

/// Addressed by surname only, deliberately.
std::string formOfAddress(const std::optional<Customer>& customer) {
    if (!customer)
        return " Damen und Herren";
    switch (customer->gender) {
    case Gender::male:
        return "r Herr " + customer->name;
    case Gender::female:
        return " Frau " + customer->name;
    case Gender::diverse:
        return "(r) " + customer->name;
    }
    return {};
}

InvoiceRow makeRow(const TimeEntry& entry, std::optional<double> projectRate, Date now) {
    const double rate = entry.hourlyRate ? *entry.hourlyRate : projectRate.value_or(0);
    return {.description = entry.taskName,
            .duration = format::paddedDuration(entry.duration(now), noDuration),
            .rate = format::money(rate, noAmount),
            .amount = format::money(entry.earnings(projectRate, now), noAmount)};
}

} // namespace

void addSender(InvoiceTexts& texts, const InvoiceSender& sender) {
    texts.logo = sender.logoData;
    addLine(texts.senderLines, sender.fullName);
    addLine(texts.senderLines, sender.address);
    addLine(texts.senderLines, joined(sender.postalCode, sender.city));
    addLine(texts.senderLines, sender.phone);
    addLine(texts.senderLines, sender.email);
    texts.closing = "Ich danke Ihnen für die gute Zusammenarbeit.\nMit freundlichen Grüßen\n\n" +
                    text::onOneLine(sender.fullName);
    addLine(texts.footerLines, sender.taxId, "Steuernummer: ");
    addLine(texts.footerLines, sender.taxOffice, "Finanzamt: ");
    addLine(texts.footerLines, sender.vatId, "USt-IdNr.: ");
    addLine(texts.footerLines, sender.bankName);
    addLine(texts.footerLines, sender.iban, "IBAN: ");
    addLine(texts.footerLines, sender.bic, "BIC: ");
}

void addLetterhead(InvoiceTexts& texts, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, const Calendar& calendar, Date invoiceDate) {
    const auto longDate = [&calendar](Date date) {
        return format::date(date, format::DateForm::longDate, calendar);
    };
    texts.invoiceLines = {"Rechnungsnummer: " + invoiceNumber, "Rechnungsdatum: " + longDate(invoiceDate),
                          "Zahlbar bis: " + longDate(calendar.addingDays(invoiceDate, paymentTermInDays))};
    if (customer)
        texts.recipientLines = recipientLines(*customer);
    texts.salutation = "Sehr geehrte" + formOfAddress(customer) + ",";
}

void addTable(InvoiceTexts& texts, const std::vector<TimeEntry>& entries, std::optional<double> projectRate,
              Date now) {
    double total = 0;
    for (const TimeEntry& entry : entries) {
        texts.rows.push_back(makeRow(entry, projectRate, now));
        // The exact seconds count; rounding is no business of the invoice.
        total += entry.earnings(projectRate, now);
    }
    texts.total = format::money(total, noAmount);
}

} // namespace brisklog
