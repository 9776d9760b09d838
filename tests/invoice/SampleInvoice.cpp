#include "invoice/SampleInvoice.h"

#include "platform/documents/CairoPdfFacility.h"

#include <array>

namespace brisklog::test {

namespace {

struct SampleText {
    Published<std::string> UserProfile::*property;
    const char* text;
};

constexpr std::array sampleTexts{SampleText{&UserProfile::companyName, "Schäfer Softwareentwicklung"},
                                 SampleText{&UserProfile::fullName, "Jürgen Schäfer-Größmann"},
                                 SampleText{&UserProfile::address, "Königsstraße 27 a"},
                                 SampleText{&UserProfile::postalCode, "80331"},
                                 SampleText{&UserProfile::city, "München"},
                                 SampleText{&UserProfile::phone, "+49 89 123456-78"},
                                 SampleText{&UserProfile::email, "juergen@schaefer-groessmann.de"},
                                 SampleText{&UserProfile::website, "www.schaefer-groessmann.de"},
                                 SampleText{&UserProfile::taxId, "143/815/08155"},
                                 SampleText{&UserProfile::taxOffice, "München Abt. III"},
                                 SampleText{&UserProfile::vatId, "DE123456789"},
                                 SampleText{&UserProfile::bankName, "Münchner Sparbank eG"},
                                 SampleText{&UserProfile::iban, "DE89 3704 0044 0532 0130 00"},
                                 SampleText{&UserProfile::bic, "COBADEFFXXX"}};

} // namespace

std::unique_ptr<ProfileInMemory> sampleProfile() {
    auto kept = std::make_unique<ProfileInMemory>();
    for (const auto& [property, text] : sampleTexts)
        kept->profile.*property = text;
    return kept;
}

void clearTexts(UserProfile& profile) {
    for (const SampleText& sample : sampleTexts)
        profile.*sample.property = "";
}

Customer sampleCustomer() {
    Customer customer;
    customer.firstName = "Erika";
    customer.name = "Müßigmann";
    customer.gender = Gender::female;
    customer.company = "Übersee Handels-GmbH & Co. KG";
    customer.address = "Große Elbstraße 145 b";
    customer.postalCode = "22767";
    customer.city = "Hamburg";
    return customer;
}

TimeEntry billedEntry(const std::string& taskName, double startMinute, double minutes,
                      std::optional<double> hourlyRate) {
    constexpr double secondsPerMinute = 60;
    TimeEntry entry;
    entry.taskName = taskName;
    entry.startTime = Date{startMinute * secondsPerMinute};
    entry.endTime = entry.startTime.addingSeconds(minutes * secondsPerMinute);
    entry.hourlyRate = hourlyRate;
    return entry;
}

std::vector<TimeEntry> billedEntries(int count) {
    constexpr double minutes = 60;
    std::vector<TimeEntry> entries;
    for (int i = 1; i <= count; ++i)
        entries.push_back(billedEntry("Aufgabe " + std::to_string(i), i * minutes, minutes));
    return entries;
}

std::string numberedLines(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += "Zeile " + std::to_string(i) + (i < count ? "\n" : "");
    return lines;
}

std::string SampleInvoice::document() const {
    CairoPdfFacility pdf;
    const UpdatedInvoiceTemplate invoice(pdf, sender, Calendar(QTimeZone("Europe/Berlin")), now);
    return invoice.generate({.project = project,
                             .customer = customer,
                             .invoiceNumber = invoiceNumber,
                             .selectedEntries = entries,
                             .additionalNotes = notes});
}

} // namespace brisklog::test
