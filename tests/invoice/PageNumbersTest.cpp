#include "invoice/ReportSample.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

/// Expects the line at the top right of every page but the first, clear of everything below.
void expectPageNumbers(const PdfReader& pdf, const std::string& name, int pages) {
    ASSERT_EQ(pdf.pageCount(), pages);
    EXPECT_FALSE(pdf.find("Seite", 1));
    for (int page = 2; page <= pages; ++page) {
        const std::string line = name + " · Seite " + std::to_string(page) + " von " + std::to_string(pages);
        const auto box = pdf.find(line, page);
        ASSERT_TRUE(box) << line;
        EXPECT_NEAR(box->right, 545, placeTolerance);
        EXPECT_GT(box->top, 18);
        EXPECT_LT(box->bottom, 50);
    }
    expectNothingPrintedOver(pdf);
}

TEST(PageNumbers, standOnEveryPageOfAnInvoiceButTheFirst) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(11 + 32 + 1);
    expectPageNumbers(PdfReader(invoice.document()), "Rechnung RE-2026-0042", 3);
}

TEST(PageNumbers, countTheNotesPagesToo) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(12);
    invoice.notes = numberedLines(130);
    expectPageNumbers(PdfReader(invoice.document()), "Rechnung RE-2026-0042", 5);
}

TEST(PageNumbers, countAPageWithTheSumAlone) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(11);
    invoice.sender.fullName =
        "Maximiliane Alexandra Freifrau von und zu Hohenlohe-Waldenburg-Schillingsfürst";
    expectPageNumbers(PdfReader(invoice.document()), "Rechnung RE-2026-0042", 2);
}

TEST(PageNumbers, areRightWhateverTheNumberOfRowsAndNotes) {
    for (const int rows : {0, 11, 12, 43, 44})
        for (const int lines : {0, 8, 12, 43, 57}) {
            SCOPED_TRACE(testing::Message() << rows << " rows, " << lines << " lines");
            SampleInvoice invoice;
            invoice.entries = billedEntries(rows);
            invoice.notes = numberedLines(lines);
            const PdfReader pdf(invoice.document());
            expectPageNumbers(pdf, "Rechnung RE-2026-0042", pdf.pageCount());
        }
}

TEST(PageNumbers, keepALongInvoiceNumberWhole) {
    for (const std::size_t length : {60U, 100U, 200U}) {
        SampleInvoice invoice;
        invoice.entries = billedEntries(12);
        invoice.invoiceNumber = "N" + std::string(length, '7') + "Z";
        const PdfReader pdf(invoice.document());
        ASSERT_EQ(pdf.pageCount(), 2);
        EXPECT_THAT(pdf.copiedText(), testing::HasSubstr("Rechnung" + invoice.invoiceNumber + "·Seite2von2"));
        expectNothingPrintedOver(pdf);
        for (const PdfWord& word : pdf.words())
            if (word.box.page == 2 && word.box.top < 50) {
                EXPECT_GE(word.box.left, 50 - placeTolerance);
                EXPECT_LE(word.box.right, 545 + placeTolerance);
                EXPECT_GT(word.box.top, 18);
            }
    }
}

TEST(PageNumbers, standOnEveryPageOfAReportButTheFirst) {
    for (const auto& [rows, pages] :
         {std::pair{3, 1}, {14, 1}, {15, 2}, {16, 2}, {33, 2}, {34, 3}, {36, 3}}) {
        SCOPED_TRACE(rows);
        expectPageNumbers(PdfReader(reportOf(rows).document()), "Bericht Website-Relaunch", pages);
    }
}

TEST(PageNumbers, ofAReportCountThePageThatItsBankLinesNeed) {
    ReportSample report = reportOf(14);
    report.sender.bankName = std::string(150, 'b');
    expectPageNumbers(PdfReader(report.document()), "Bericht Website-Relaunch", 2);
}

} // namespace
} // namespace brisklog::test
