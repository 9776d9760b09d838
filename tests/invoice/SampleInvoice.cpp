#include "invoice/SampleInvoice.h"

#include "platform/documents/CairoPdfFacility.h"

namespace brisklog::test {

InvoiceSender sampleSender() {
    return {.companyName = "Schäfer Softwareentwicklung",
            .fullName = "Jürgen Schäfer-Größmann",
            .address = "Königsstraße 27 a",
            .postalCode = "80331",
            .city = "München",
            .phone = "+49 89 123456-78",
            .email = "juergen@schaefer-groessmann.de",
            .website = "www.schaefer-groessmann.de",
            .taxId = "143/815/08155",
            .taxOffice = "München Abt. III",
            .vatId = "DE123456789",
            .bankName = "Münchner Sparbank eG",
            .iban = "DE89 3704 0044 0532 0130 00",
            .bic = "COBADEFFXXX",
            .logoData = std::nullopt};
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
    return invoice.generate(project, customer, invoiceNumber, entries, notes);
}

} // namespace brisklog::test
