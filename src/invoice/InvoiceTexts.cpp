#include "invoice/InvoiceTexts.h"

#include "foundation/GermanFormat.h"
#include "foundation/Text.h"

namespace brisklog {
namespace {

constexpr const char* noAmount = "0,00\u00A0€";
constexpr const char* noDuration = "0\u00A0h 0\u00A0min";

/// Both with a blank between; neither when both are empty.
std::string joined(const std::string& first, const std::string& second) {
    const std::string both = first + " " + second;
    return std::string(text::trimmed(both));
}

void addLine(std::vector<std::string>& lines, std::string line) {
    if (!line.empty())
        lines.push_back(std::move(line));
}

void addLabelled(std::vector<std::string>& lines, const char* label, const std::string& value) {
    if (!value.empty())
        lines.push_back(label + value);
}

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

std::string longDate(Date date) { return format::date(date, format::DateForm::longDate); }

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
    texts.closing =
        "Ich danke Ihnen für die gute Zusammenarbeit.\nMit freundlichen Grüßen\n\n" + text::onOneLine(sender.fullName);
    addLabelled(texts.footerLines, "Steuernummer: ", sender.taxId);
    addLabelled(texts.footerLines, "Finanzamt: ", sender.taxOffice);
    addLabelled(texts.footerLines, "USt-IdNr.: ", sender.vatId);
    addLine(texts.footerLines, sender.bankName);
    addLabelled(texts.footerLines, "IBAN: ", sender.iban);
    addLabelled(texts.footerLines, "BIC: ", sender.bic);
}

void addLetterhead(InvoiceTexts& texts, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, Date invoiceDate, Date payableBy) {
    texts.invoiceLines = {"Rechnungsnummer: " + invoiceNumber, "Rechnungsdatum: " + longDate(invoiceDate),
                          "Zahlbar bis: " + longDate(payableBy)};
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
