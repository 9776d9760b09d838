#include "invoice/ReportSample.h"

#include "foundation/GermanFormat.h"
#include "platform/documents/CairoPdfFacility.h"

namespace brisklog::test {

std::string ReportSample::document() const {
    format::useTimeZone(QTimeZone("Europe/Berlin"));
    CairoPdfFacility pdf;
    return InvoiceGenerator(pdf, sender, now).generate(project);
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
