#include "invoice/RandomTexts.h"
#include "invoice/ReportSample.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

ReportSample randomReport(Chance& chance) {
    ReportSample report;
    report.project.name = randomLine(chance, 5);
    report.project.entries = randomEntries(chance);
    report.project.hourlyRate = randomAmount(chance);
    if (chance.oneIn(3))
        report.project.hourlyRate.reset();
    UserProfile& sender = report.sender;
    for (auto* field :
         {&sender.companyName, &sender.fullName, &sender.address, &sender.city, &sender.phone, &sender.email,
          &sender.website, &sender.taxId, &sender.vatId, &sender.bankName, &sender.iban})
        if (chance.oneIn(4))
            *field = randomLine(chance, 6);
    if (chance.oneIn(2))
        sender.logoData = randomLogo(chance);
    return report;
}

TEST(ReportPdfRandom, whateverIsTypedTheReportIsCompleteAndNothingIsPrintedOver) {
    for (int seed = firstRandomSeed(); seed < firstRandomSeed() + randomDocumentCount(); ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(static_cast<unsigned>(seed));
        ReportSample report = randomReport(chance);
        report.project.entries.push_back(billedEntry("Zuletzt", 0, 61));
        const PdfReader pdf(report.document());
        EXPECT_EQ(pdf.complaints(), "");
        EXPECT_THAT(pdf.copiedText(), testing::HasSubstr("Zuletzt01.01.200101:0001.01.200102:011h1min"));
        EXPECT_TRUE(pdf.find("Gesamtdauer:", pdf.pageCount()));
        EXPECT_TRUE(pdf.find("BIC: COBADEFFXXX", pdf.pageCount()));
        expectNothingPrintedOver(pdf);
        if (HasFailure())
            break;
    }
}

} // namespace
} // namespace brisklog::test
