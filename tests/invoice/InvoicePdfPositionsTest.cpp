#include "invoice/SampleInvoice.h"
#include "support/PdfPlaces.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr double left = 50;
/// The top of the first line of both columns.
constexpr double pageTop = 792;

/// The rule under the header is this much higher and the rows' text this much lower, for accents to fit in.
constexpr double ruleClearance = 0.9;

/// Expects a thin rule across the content at that height.
void expectRule(const PdfReader& pdf, double y, int page = 1) {
    const auto ink =
        pdf.picture(page, 288).inkWithin({page, 0, a4.height - y - 0.6, 595, a4.height - y + 0.6});
    ASSERT_TRUE(ink) << y;
    EXPECT_NEAR(ink->left, 50, placeTolerance);
    EXPECT_NEAR(ink->right, 545, placeTolerance);
}

TEST(InvoicePdfPositions, senderLinesFollowEachOtherFromTheTopMargin) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Jürgen Schäfer-Größmann", left, pageTop - 14);
    expectLine(pdf, "Königsstraße 27 a", left, pageTop - 28);
    expectLine(pdf, "80331 München", left, pageTop - 42);
    expectLine(pdf, "+49 89 123456-78", left, pageTop - 56);
    expectLine(pdf, "juergen@schaefer-groessmann.de", left, pageTop - 70);
}

TEST(InvoicePdfPositions, emptySenderFieldsLeaveNoLine) {
    SampleInvoice invoice;
    invoice.sender.address = "";
    invoice.sender.postalCode = "";
    invoice.sender.phone = "";
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Jürgen Schäfer-Größmann", left, pageTop - 14);
    expectLine(pdf, "München", left, pageTop - 28);
    expectLine(pdf, "juergen@schaefer-groessmann.de", left, pageTop - 42);
}

TEST(InvoicePdfPositions, theSendersLinesDoNotMoveTheRightColumn) {
    SampleInvoice invoice;
    clearTexts(invoice.sender);
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Rechnungsnummer: RE-2026-0042", rightColumn, pageTop - 14);
    expectLine(pdf, "Hamburg", pdf.find("Hamburg")->left, pageTop - 103);
}

TEST(InvoicePdfPositions, numberAndDatesStandInTheRightColumn) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Rechnungsnummer: RE-2026-0042", rightColumn, pageTop - 14);
    expectLine(pdf, "Rechnungsdatum: 15. November 2026", rightColumn, pageTop - 28);
    expectLine(pdf, "Zahlbar bis: 29. November 2026", rightColumn, pageTop - 42);
}

TEST(InvoicePdfPositions, theRecipientFollowsFivePointsBelow) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Übersee Handels-GmbH & Co. KG", rightColumn, 731);
    expectLine(pdf, "Erika Müßigmann", rightColumn, 717);
    expectLine(pdf, "Große Elbstraße 145 b", rightColumn, 703);
    expectLine(pdf, "22767 Hamburg", rightColumn, 689);
}

TEST(InvoicePdfPositions, emptyRecipientFieldsLeaveNoLine) {
    SampleInvoice invoice;
    invoice.customer->company = "";
    invoice.customer->firstName = "";
    invoice.customer->postalCode = "";
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Müßigmann", rightColumn, 731);
    expectLine(pdf, "Große Elbstraße 145 b", rightColumn, 717);
    expectLine(pdf, "Hamburg", rightColumn, 703);
    expectLine(pdf, "Rechnung", left, 633, 20);
}

TEST(InvoicePdfPositions, titleAndGreetingFollowTheRecipient) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Rechnung", left, 619, 20);
    expectLine(pdf, "Sehr geehrte Frau Müßigmann,", left, 569);
    expectLine(pdf, "vielen Dank für Ihren Auftrag und Ihr Vertrauen.", left, 499, 42);
    const auto first = pdf.find("vielen Dank");
    const auto second = pdf.find("Für meine Arbeit stelle ich Ihnen folgende Summe in Rechnung:");
    ASSERT_TRUE(first && second);
    EXPECT_NEAR(second->left, left, placeTolerance);
    EXPECT_GT(second->top, first->top + 10);
}

TEST(InvoicePdfPositions, withoutACustomerTheTitleFollowsTheDates) {
    SampleInvoice invoice;
    invoice.customer.reset();
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Rechnung", left, 675, 20);
    expectLine(pdf, "Sehr geehrte Damen und Herren,", left, 625);
    expectLine(pdf, "Beschreibung", left, 499);
}

TEST(InvoicePdfPositions, theTableStandsInItsColumns) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Beschreibung", left, 443);
    expectNumber(pdf, "Dauer", 371.75, 443);
    expectNumber(pdf, "Stundensatz", 446, 443);
    expectNumber(pdf, "Betrag", 520.25, 443);
    expectRule(pdf, 422 + ruleClearance);
    for (int row = 0; row < 3; ++row) {
        const double y = 408 - row * 14 - ruleClearance;
        const std::string cells = "Aufgabe " + std::to_string(row + 1);
        expectLine(pdf, cells, left, y);
        expectLine(pdf, cells + " 1 h 0 min 80,00 € 80,00 €", left, y);
        expectNumber(pdf, cells + " 1 h 0 min", 371.75, y);
        expectNumber(pdf, cells + " 1 h 0 min 80,00 €", 446, y);
        expectNumber(pdf, cells + " 1 h 0 min 80,00 € 80,00 €", 520.25, y);
    }
}

TEST(InvoicePdfPositions, accentedCapitalsInTheFirstRowKeepClearOfTheRule) {
    SampleInvoice invoice;
    invoice.entries = {billedEntry("ÜÅÉǕ", 0, 60)};
    const PdfPicture picture = PdfReader(invoice.document()).picture(1, 720);
    // Down through the letters: where ink begins and ends.
    std::vector<int> edges;
    bool wasInk = false;
    for (int row = 4150; row < 4320; ++row) {
        bool isInk = false;
        for (int column = 500; column < 760; ++column)
            isInk = isInk || picture.brightness(column, row) < 250;
        if (isInk != wasInk)
            edges.push_back(row);
        wasInk = isInk;
    }
    ASSERT_GE(edges.size(), 4U);
    EXPECT_NEAR(edges[0], 4200, 13);
    EXPECT_LE(edges[1] - edges[0], 7) << "the rule and the letters are one";
}

TEST(InvoicePdfPositions, totalClosingTextAndFooterFollowTheRows) {
    const PdfReader pdf(SampleInvoice().document());
    // The last of the three rows is at 380; the next would be at 366.
    expectRule(pdf, 359);
    expectLine(pdf, "Gesamtbetrag:", left, 345);
    expectNumber(pdf, "Gesamtbetrag: 240,00 €", 520.25, 345);
    expectLine(pdf, "Ich danke Ihnen für die gute Zusammenarbeit.", left, 233, 70);
    const auto thanks = pdf.find("Ich danke");
    const auto regards = pdf.find("Mit freundlichen Grüßen");
    ASSERT_TRUE(thanks && regards);
    const double lineHeight = regards->top - thanks->top;
    EXPECT_NEAR(regards->left, left, placeTolerance);
    // There is an empty line between the greeting and the name.
    std::vector<PdfBox> names;
    for (const PdfWord& word : pdf.words())
        if (word.text == "Jürgen")
            names.push_back(word.box);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_NEAR(names[1].top, regards->top + 2 * lineHeight, placeTolerance);
}

TEST(InvoicePdfPositions, taxAndBankLinesStandAtTheFoot) {
    const PdfReader pdf(SampleInvoice().document());
    expectLine(pdf, "Steuernummer: 143/815/08155", rightColumn, 204);
    expectLine(pdf, "Finanzamt: München Abt. III", rightColumn, 190);
    expectLine(pdf, "USt-IdNr.: DE123456789", rightColumn, 176);
    expectLine(pdf, "Münchner Sparbank eG", rightColumn, 162);
    expectLine(pdf, "IBAN: DE89 3704 0044 0532 0130 00", rightColumn, 148);
    expectLine(pdf, "BIC: COBADEFFXXX", rightColumn, 134);
}

TEST(InvoicePdfPositions, emptyTaxAndBankFieldsLeaveNoLine) {
    SampleInvoice invoice;
    invoice.sender.taxId = "";
    invoice.sender.vatId = "";
    invoice.sender.bankName = "";
    invoice.sender.bic = "";
    const PdfReader pdf(invoice.document());
    expectLine(pdf, "Finanzamt: München Abt. III", rightColumn, 204);
    expectLine(pdf, "IBAN: DE89 3704 0044 0532 0130 00", rightColumn, 190);
    EXPECT_FALSE(pdf.find("Steuernummer:"));
    EXPECT_FALSE(pdf.find("USt-IdNr.:"));
    EXPECT_FALSE(pdf.find("BIC:"));
}

TEST(InvoicePdfPositions, elevenRowsFitUnderAFullLetterhead) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(11);
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.pageCount(), 1);
    expectLine(pdf, "Aufgabe 11", left, 268 - ruleClearance);
    expectRule(pdf, 247);
    expectLine(pdf, "Gesamtbetrag:", left, 233);
    expectLine(pdf, "Ich danke Ihnen", left, 121, 70);
}

TEST(InvoicePdfPositions, aRowBelowTwoHundredSixtyBeginsAPageWithTheHeaderAlone) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(12);
    const PdfReader pdf(invoice.document());
    ASSERT_EQ(pdf.pageCount(), 2);
    EXPECT_TRUE(pdf.find("Aufgabe 11", 1));
    expectLine(pdf, "Beschreibung", left, 736, 14, 2);
    expectNumber(pdf, "Dauer", 371.75, 736, 2);
    expectNumber(pdf, "Stundensatz", 446, 736, 2);
    expectNumber(pdf, "Betrag", 520.25, 736, 2);
    expectRule(pdf, 715 + ruleClearance, 2);
    expectLine(pdf, "Aufgabe 12", left, 701 - ruleClearance, 14, 2);
    EXPECT_FALSE(pdf.find("Rechnungsnummer:", 2));
    EXPECT_FALSE(pdf.find("München", 2) && pdf.find("München", 2)->top < 600);
    EXPECT_FALSE(pdf.find("Gesamtbetrag:", 1));
    expectRule(pdf, 680, 2);
    expectLine(pdf, "Gesamtbetrag:", left, 666, 14, 2);
    EXPECT_TRUE(pdf.find("Ich danke Ihnen", 2));
    EXPECT_FALSE(pdf.find("Steuernummer:", 1));
    expectLine(pdf, "Steuernummer: 143/815/08155", rightColumn, 204, 14, 2);
}

TEST(InvoicePdfPositions, laterPagesHoldThirtyTwoRows) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(11 + 32 + 1);
    const PdfReader pdf(invoice.document());
    ASSERT_EQ(pdf.pageCount(), 3);
    expectLine(pdf, "Aufgabe 43", left, 267 - ruleClearance, 14, 2);
    expectLine(pdf, "Aufgabe 44", left, 701 - ruleClearance, 14, 3);
    expectRule(pdf, 715 + ruleClearance, 3);
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 3.520,00 €", 3));
    EXPECT_FALSE(pdf.find("Gesamtbetrag:", 2));
}

TEST(InvoicePdfPositions, thePageFollowsTheLastRowOnlyWhenThereIsAnotherOne) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(11 + 32);
    EXPECT_EQ(PdfReader(invoice.document()).pageCount(), 2);
}

} // namespace
} // namespace brisklog::test
