#include "invoice/ReportSample.h"

#include "platform/documents/CairoPdfFacility.h"

namespace brisklog::test {

std::string ReportSample::document() const {
    CairoPdfFacility pdf;
    return InvoiceGenerator(pdf, sender, Calendar(QTimeZone("Europe/Berlin")), now).generate(project);
}

ReportSample reportOf(int entries) {
    ReportSample report;
    report.project.entries = billedEntries(entries);
    return report;
}

ReportSample reportWithoutRate(int entries) {
    ReportSample report = reportOf(entries);
    report.project.hourlyRate.reset();
    return report;
}

} // namespace brisklog::test
