#include "invoice/ReportTexts.h"

#include "foundation/GermanFormat.h"
#include "invoice/SenderLines.h"

namespace brisklog {
namespace {

constexpr const char* noAmount = "0,00\u00A0€";
constexpr const char* noDuration = "0\u00A0min";

std::string duration(TimeInterval seconds) { return format::duration(seconds, noDuration); }

std::string money(double euros) { return format::money(euros, noAmount); }

std::vector<std::vector<std::string>> senderGroups(const InvoiceSender& sender) {
    std::vector<std::string> address;
    addLine(address, sender.companyName);
    addLine(address, sender.fullName);
    addLine(address, sender.address);
    addLine(address, joined(sender.postalCode, sender.city));
    std::vector<std::string> contact;
    addLine(contact, sender.phone, "Tel: ");
    addLine(contact, sender.email, "E-Mail: ");
    addLine(contact, sender.website, "Web: ");
    std::vector<std::string> tax;
    addLine(tax, sender.taxId, "Steuernummer: ");
    addLine(tax, sender.vatId, "USt-IdNr.: ");
    return {address, contact, tax};
}

std::vector<std::string> bankLines(const InvoiceSender& sender) {
    std::vector<std::string> lines;
    addLine(lines, sender.bankName, "Bankverbindung: ");
    addLine(lines, sender.iban, "IBAN: ");
    addLine(lines, sender.bic, "BIC: ");
    return lines;
}

ReportMoment moment(const std::optional<Date>& date) {
    if (!date)
        return {};
    return {format::date(*date, format::DateForm::mediumDate),
            format::date(*date, format::DateForm::shortTime)};
}

ReportRow makeRow(const TimeEntry& entry, Date now) {
    return {.taskName = entry.taskName,
            .start = moment(entry.startTime),
            .end = moment(entry.endTime),
            .duration = duration(entry.duration(now)),
            .earnings = std::nullopt};
}

void addRows(ReportTexts& texts, const Project& project, Date now) {
    TimeInterval totalDuration = 0;
    double totalEarnings = 0;
    for (const TimeEntry& entry : project.entries) {
        texts.rows.push_back(makeRow(entry, now));
        totalDuration += entry.duration(now);
        if (!project.hourlyRate)
            continue;
        // At the project's rate alone: a report shows what the project brings in, so an entry's own rate
        // deliberately counts on invoices only.
        const double earnings = entry.duration(now) / secondsPerHour * *project.hourlyRate;
        texts.rows.back().earnings = money(earnings);
        totalEarnings += earnings;
    }
    texts.totals.push_back("Gesamtdauer: " + duration(totalDuration));
    if (project.hourlyRate)
        texts.totals.push_back("Gesamtverdienst: " + money(totalEarnings));
}

} // namespace

ReportTexts reportTexts(const Project& project, const InvoiceSender& sender, Date now) {
    ReportTexts texts;
    texts.logo = sender.logoData;
    texts.senderGroups = senderGroups(sender);
    texts.title = "Zeiterfassung: " + project.name;
    texts.creationDate = "Erstellt am " + format::date(now, format::DateForm::longDate);
    if (project.hourlyRate)
        texts.hourlyRate = "Stundensatz: " + money(*project.hourlyRate);
    addRows(texts, project, now);
    texts.bankLines = bankLines(sender);
    return texts;
}

} // namespace brisklog
