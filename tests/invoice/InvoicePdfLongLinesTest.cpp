#include "invoice/SampleInvoice.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

constexpr double topMargin = 792;
constexpr double sideLineWidth = 200;

/// The size of that text, in points; its line must have one size.
double pointSizeOf(const PdfReader& pdf, std::string_view phrase) {
    const auto text = pdf.find(phrase);
    const auto tenPoints = pdf.find("Rechnungsdatum:");
    if (!text || !tenPoints)
        return 0;
    return 10 * (text->bottom - text->top) / (tenPoints->bottom - tenPoints->top);
}

/// Expects the line at its place, whole, in one size of at least eight points, within its width.
void expectWholeLine(const PdfReader& pdf, const std::string& line, double x, double y) {
    SCOPED_TRACE(line);
    expectLine(pdf, line, x, y);
    const auto box = pdf.find(line);
    ASSERT_TRUE(box);
    EXPECT_LE(box->right, x + sideLineWidth + placeTolerance);
    EXPECT_GE(pointSizeOf(pdf, line), 8 - 0.01);
    EXPECT_LT(pointSizeOf(pdf, line), 10);
}

void expectWithoutEllipsis(const PdfReader& pdf) {
    for (const PdfWord& word : pdf.words())
        EXPECT_THAT(word.text, testing::Not(HasSubstr("…")));
}

TEST(InvoicePdfLongLines, anInvoiceNumberOfSeventeenCharactersIsSetSmallerAndWhole) {
    SampleInvoice invoice;
    invoice.invoiceNumber = "2026-11-22-MUENCH";
    const PdfReader pdf(invoice.document());
    expectWholeLine(pdf, "Rechnungsnummer: 2026-11-22-MUENCH", rightColumn, topMargin - 14);
    expectLine(pdf, "Rechnungsdatum: 15. November 2026", rightColumn, topMargin - 28);
}

TEST(InvoicePdfLongLines, ibansOfAllLengthsAreSetSmallerAndWhole) {
    for (const char* const iban : longIbans) {
        SampleInvoice invoice;
        invoice.sender.iban = iban;
        const PdfReader pdf(invoice.document());
        expectWholeLine(pdf, "IBAN: " + std::string(iban), rightColumn, 148);
        expectLine(pdf, "BIC: COBADEFFXXX", rightColumn, 134);
    }
}

TEST(InvoicePdfLongLines, whatIsTooLongAtEightPointsGoesOnInAFurtherLine) {
    SampleInvoice invoice;
    invoice.customer->company =
        "Gesellschaft für angewandte Oberflächentechnik und Maschinenbau Süd mbH & Co. Kommanditgesellschaft";
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Gesellschaft", rightColumn, 731);
    const auto first = pdf.find("Gesellschaft");
    const auto last = pdf.find("Kommanditgesellschaft");
    const auto next = pdf.find("Erika Müßigmann");
    ASSERT_TRUE(first && last && next);
    EXPECT_NEAR(pointSizeOf(pdf, "Kommanditgesellschaft"), 8, 0.05);
    EXPECT_GE(last->top, first->bottom - 0.5);
    EXPECT_GT(next->top, last->bottom);
    EXPECT_LT(next->top, last->bottom + 6);
    EXPECT_THAT(pdf.copiedText(), HasSubstr(withoutBlanks(invoice.customer->company)));
    for (const PdfWord& word : pdf.words())
        if (word.box.left > rightColumn - 1) {
            EXPECT_LE(word.box.right, rightColumn + sideLineWidth + placeTolerance) << word.text;
        }
    expectWithoutEllipsis(pdf);
    expectNothingPrintedOver(pdf);
}

TEST(InvoicePdfLongLines, whatFollowsMovesDownByTheFurtherLines) {
    SampleInvoice invoice;
    const PdfReader before(invoice.document());
    invoice.customer->company += " " + std::string(45, 'k');
    const PdfReader after(invoice.document());
    const double further = after.find("Erika")->top - before.find("Erika")->top;
    EXPECT_GT(further, 8);
    for (const char* const text : {"22767 Hamburg", "Sehr geehrte Frau Müßigmann,", "Beschreibung",
                                   "Aufgabe 3", "Gesamtbetrag: 240,00 €"})
        EXPECT_NEAR(after.find(text)->top - before.find(text)->top, further, placeTolerance) << text;
    expectLine(after, "Steuernummer: 143/815/08155", rightColumn, 204);
}

TEST(InvoicePdfLongLines, aSenderOfManyLinesPushesTheTitleDown) {
    SampleInvoice invoice;
    for (auto* field :
         {&invoice.sender.fullName, &invoice.sender.address, &invoice.sender.city, &invoice.sender.phone})
        *field = std::string(60, 's') + " " + std::string(60, 't') + " " + std::string(60, 'u');
    invoice.sender.email = "post@example.org";
    const PdfReader pdf(invoice.document());
    const PdfReader ordinary(SampleInvoice().document());
    const auto gap = [](const PdfReader& read, std::string_view lastLine) {
        return read.find("Rechnung")->top - read.find(lastLine)->bottom;
    };
    EXPECT_NEAR(gap(pdf, "post@example.org"), gap(ordinary, "22767 Hamburg") - 36, placeTolerance);
    expectLine(pdf, "Rechnungsnummer: RE-2026-0042", rightColumn, topMargin - 14);
    expectWithoutEllipsis(pdf);
    expectNothingPrintedOver(pdf);
}

TEST(InvoicePdfLongLines, theSalutationNamesThePayerInFull) {
    SampleInvoice invoice;
    invoice.customer->name = "von und zu Hohenlohe-Waldenburg-Schillingsfürst";
    for (int i = 0; i < 4; ++i)
        invoice.customer->name += " von und zu Hohenlohe-Waldenburg-Schillingsfürst";
    const PdfReader pdf(invoice.document());
    EXPECT_THAT(pdf.copiedText(),
                HasSubstr(withoutBlanks("Sehr geehrte Frau " + invoice.customer->name + ",vielen Dank")));
    expectNothingPrintedOver(pdf);
}

TEST(InvoicePdfLongLines, theClosingTextNamesThePayeeInFull) {
    SampleInvoice invoice;
    std::string name = "Anna\nMaria";
    for (int i = 0; i < 150; ++i)
        name += " von und zu";
    invoice.sender.fullName = name;
    const PdfReader pdf(invoice.document());
    const int page = pdf.pageCount();
    const auto thanks = pdf.find("Ich danke", page);
    ASSERT_TRUE(thanks);
    EXPECT_THAT(pdf.copiedText(),
                HasSubstr(withoutBlanks("Mit freundlichen Grüßen" + name + "Steuernummer:")));
    for (const PdfWord& word : pdf.words())
        if (word.box.page == page && word.text == "und") {
            EXPECT_LE(word.box.bottom, thanks->top + 70 + placeTolerance);
        }
    expectNothingPrintedOver(pdf);
}

TEST(InvoicePdfLongLines, numbersAndNamesOfAnyLengthAreCompleteAndNothingIsPrintedOver) {
    SampleInvoice invoice;
    const auto endless = [](char letter) { return "A" + std::string(700, letter) + "Z"; };
    invoice.invoiceNumber = endless('0');
    invoice.customer->company = endless('k');
    invoice.customer->name = endless('n');
    char letter = 'a';
    for (auto* field :
         {&invoice.sender.fullName, &invoice.sender.address, &invoice.sender.phone, &invoice.sender.email,
          &invoice.sender.taxId, &invoice.sender.vatId, &invoice.sender.bankName, &invoice.sender.iban})
        *field = endless(letter++);
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.complaints(), "");
    const std::string text = pdf.copiedText();
    for (const char used : std::string("0knabcdefgh"))
        EXPECT_THAT(text, HasSubstr(endless(used))) << used;
    EXPECT_TRUE(pdf.find("Aufgabe 1 1 h 0 min 80,00 € 80,00 €", 1));
    expectWithoutEllipsis(pdf);
    expectNothingPrintedOver(pdf);
    for (const PdfWord& word : pdf.words()) {
        EXPECT_LE(word.box.right, 582) << word.text;
        EXPECT_LE(word.box.bottom, 842) << word.text;
    }
}

} // namespace
} // namespace brisklog::test
