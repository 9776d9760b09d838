#include "invoice/InvoiceTexts.h"

#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"
#include "foundation/Text.h"
#include "invoice/SenderLines.h"
#include "profile/UserProfile.h"

#include <array>

namespace brisklog {
namespace {

/// Calendar days from the invoice's date to its due date.
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

using Content = InvoiceColumn::Content;

std::string money(double euros) { return format::money(euros, "0,00\u00A0€"); }

std::string description(const BilledEntry& billed) { return billed.entry.taskName; }

std::string duration(const BilledEntry& billed) {
    return format::paddedDuration(billed.entry.duration(billed.now), "0\u00A0h 0\u00A0min");
}

std::string rate(const BilledEntry& billed) {
    return money(billed.entry.hourlyRate.value_or(billed.projectRate.value_or(0)));
}

std::string amount(const BilledEntry& billed) {
    return money(billed.entry.earnings(billed.projectRate, billed.now));
}

constexpr std::array columns{InvoiceColumn{"Beschreibung", 0, 0.5, Content::text, description},
                             InvoiceColumn{"Dauer", 0.5, 0.15, Content::number, duration},
                             InvoiceColumn{"Stundensatz", 0.65, 0.15, Content::number, rate},
                             InvoiceColumn{"Betrag", 0.8, 0.15, Content::number, amount}};

} // namespace

void addSender(InvoiceTexts& texts, const UserProfile& profile) {
    texts.logo = profile.logoData;
    addLine(texts.senderLines, profile.fullName);
    addLine(texts.senderLines, profile.address);
    addLine(texts.senderLines, joined(profile.postalCode, profile.city));
    addLine(texts.senderLines, profile.phone);
    addLine(texts.senderLines, profile.email);
    texts.closing = "Ich danke Ihnen für die gute Zusammenarbeit.\nMit freundlichen Grüßen\n\n" +
                    text::onOneLine(profile.fullName);
    addLine(texts.footerLines, profile.taxId, "Steuernummer: ");
    addLine(texts.footerLines, profile.taxOffice, "Finanzamt: ");
    addLine(texts.footerLines, profile.vatId, "USt-IdNr.: ");
    addLine(texts.footerLines, profile.bankName);
    addLine(texts.footerLines, profile.iban, "IBAN: ");
    addLine(texts.footerLines, profile.bic, "BIC: ");
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

std::span<const InvoiceColumn> invoiceColumns() { return columns; }

InvoiceTable invoiceTable(const std::vector<TimeEntry>& entries, std::optional<double> projectRate,
                          Date now) {
    InvoiceTable table;
    double total = 0;
    for (const TimeEntry& entry : entries) {
        InvoiceCells& cells = table.rows.emplace_back();
        for (const InvoiceColumn& column : columns)
            cells.push_back(column.cell({entry, projectRate, now}));
        // Exact seconds count: the invoice does not round time.
        total += entry.earnings(projectRate, now);
    }
    table.total = money(total);
    return table;
}

} // namespace brisklog
