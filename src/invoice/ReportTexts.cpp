#include "invoice/ReportTexts.h"

#include "foundation/GermanFormat.h"
#include "invoice/SenderLines.h"
#include "profile/UserProfile.h"

namespace brisklog {
namespace {

constexpr const char* noAmount = "0,00\u00A0€";
constexpr const char* noDuration = "0\u00A0min";

std::string duration(TimeInterval seconds) { return format::duration(seconds, noDuration); }

std::string money(double euros) { return format::money(euros, noAmount); }

std::vector<std::vector<std::string>> senderGroups(const UserProfile& profile) {
    std::vector<std::string> address;
    addLine(address, profile.companyName);
    addLine(address, profile.fullName);
    addLine(address, profile.address);
    addLine(address, joined(profile.postalCode, profile.city));
    std::vector<std::string> contact;
    addLine(contact, profile.phone, "Tel: ");
    addLine(contact, profile.email, "E-Mail: ");
    addLine(contact, profile.website, "Web: ");
    std::vector<std::string> tax;
    addLine(tax, profile.taxId, "Steuernummer: ");
    addLine(tax, profile.vatId, "USt-IdNr.: ");
    return {address, contact, tax};
}

std::vector<std::string> bankLines(const UserProfile& profile) {
    std::vector<std::string> lines;
    addLine(lines, profile.bankName, "Bankverbindung: ");
    addLine(lines, profile.iban, "IBAN: ");
    addLine(lines, profile.bic, "BIC: ");
    return lines;
}

ReportMoment moment(const std::optional<Date>& date, const Calendar& calendar) {
    if (!date)
        return {};
    return {format::date(*date, format::DateForm::mediumDate, calendar),
            format::date(*date, format::DateForm::shortTime, calendar)};
}

ReportRow makeRow(const TimeEntry& entry, const Calendar& calendar, Date now) {
    return {.taskName = entry.taskName,
            .start = moment(entry.startTime, calendar),
            .end = moment(entry.endTime, calendar),
            .duration = duration(entry.duration(now)),
            .earnings = std::nullopt};
}

void addRows(ReportTexts& texts, const Project& project, const Calendar& calendar, Date now) {
    TimeInterval totalDuration = 0;
    double totalEarnings = 0;
    for (const TimeEntry& entry : project.entries) {
        texts.rows.push_back(makeRow(entry, calendar, now));
        totalDuration += entry.duration(now);
        if (!project.hourlyRate)
            continue;
        // At the project's rate only: a report shows what the project brings in, so an entry's own rate
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

ReportTexts reportTexts(const Project& project, const UserProfile& profile, const Calendar& calendar,
                        Date now) {
    ReportTexts texts;
    texts.name = joined("Bericht", project.name);
    texts.logo = profile.logoData;
    texts.senderGroups = senderGroups(profile);
    texts.title = "Zeiterfassung: " + project.name;
    texts.creationDate = "Erstellt am " + format::date(now, format::DateForm::longDate, calendar);
    if (project.hourlyRate)
        texts.hourlyRate = "Stundensatz: " + money(*project.hourlyRate);
    addRows(texts, project, calendar, now);
    texts.bankLines = bankLines(profile);
    return texts;
}

} // namespace brisklog
