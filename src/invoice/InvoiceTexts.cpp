#include "invoice/InvoiceTexts.h"

#include "foundation/GermanFormat.h"
#include "foundation/Text.h"
#include "invoice/SenderLines.h"
#include "profile/UserProfile.h"

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
                   const std::string& invoiceNumber, const InvoiceDate& date) {
    const auto longDate = [&date](Date day) {
        return format::date(day, format::DateForm::longDate, date.calendar);
    };
    texts.name = joined("Rechnung", text::onOneLine(invoiceNumber));
    texts.invoiceLines = {"Rechnungsnummer: " + invoiceNumber, "Rechnungsdatum: " + longDate(date.now),
                          "Zahlbar bis: " + longDate(date.calendar.addingDays(date.now, paymentTermInDays))};
    if (customer)
        texts.recipientLines = recipientLines(*customer);
    texts.salutation = "Sehr geehrte" + formOfAddress(customer) + ",";
}

} // namespace brisklog
