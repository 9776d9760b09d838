#include "invoice/SampleInvoice.h"
#include "support/PdfContent.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr PdfStyle invoiceText{10, PdfWeight::regular, grey(0)};
constexpr PdfStyle invoiceStrong{10, PdfWeight::bold, grey(0)};
constexpr PdfStyle invoiceHeading{16, PdfWeight::bold, grey(0)};

std::string everyWord(const PdfReader& pdf, int page) {
    std::string words;
    for (const PdfWord& word : pdf.words())
        if (word.box.page == page)
            words += (words.empty() ? "" : " ") + word.text;
    return words;
}

/// Expects thin grey lines across the content, that far below the page's top edge.
void expectRules(const PdfContent& content, const std::vector<double>& fromTop) {
    // The smallest step in which places are written.
    constexpr double hair = 0.004;
    const auto& rules = content.strokes();
    ASSERT_EQ(rules.size(), fromTop.size());
    for (std::size_t i = 0; i < rules.size(); ++i) {
        EXPECT_NEAR(rules[i].fromY, fromTop[i], hair);
        const double y = rules[i].fromY;
        EXPECT_EQ(rules[i], (PdfStroke{50, y, 545, y, 0.5, grey(0.5)}));
    }
}

TEST(InvoicePdfStyle, titleColumnTitlesAndTotalAreBoldAndAllElseIsPlain) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(1);
    const PdfReader pdf(invoice.document());
    const PdfContent content(pdf);
    EXPECT_EQ(content.wordsIn(invoiceHeading), "Rechnung");
    EXPECT_EQ(content.wordsIn(invoiceStrong), "Beschreibung Dauer Stundensatz Betrag Gesamtbetrag: 80,00 €");
    EXPECT_EQ(
        (content.wordsIn(invoiceHeading) + content.wordsIn(invoiceStrong) + content.wordsIn(invoiceText))
            .size(),
        everyWord(pdf, 1).size() - 2);
    EXPECT_EQ(content.styleOf("Jürgen Schäfer-Größmann"), invoiceText);
    EXPECT_EQ(content.styleOf("Aufgabe 1"), invoiceText);
}

TEST(InvoicePdfStyle, theTableLooksTheSameOnFurtherPages) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(12);
    const PdfReader pdf(invoice.document());
    const PdfContent content(pdf, 2);
    EXPECT_EQ(content.wordsIn(invoiceStrong), "Beschreibung Dauer Stundensatz Betrag Gesamtbetrag: 960,00 €");
    EXPECT_EQ(content.wordsIn(invoiceHeading), "");
    EXPECT_EQ(content.styleOf("Rechnung RE-2026-0042 · Seite 2 von 2"), invoiceText);
    EXPECT_EQ(content.styleOf("Aufgabe 12"), invoiceText);
}

TEST(InvoicePdfStyle, thinGreyRulesStandUnderTheColumnTitlesAndOverTheTotalOnly) {
    SampleInvoice invoice;
    const PdfReader onePage(invoice.document());
    const PdfContent content(onePage);
    // The rule over the rows is drawn a little higher than the one over the total.
    expectRules(content, {842 - 422.9, 842 - 359});
    EXPECT_TRUE(content.areas().empty());

    invoice.entries = billedEntries(12);
    const PdfReader twoPages(invoice.document());
    expectRules(PdfContent(twoPages, 1), {842 - 422.9});
    expectRules(PdfContent(twoPages, 2), {842 - 715.9, 842 - 680});
}

TEST(InvoicePdfStyle, notesOnTheirOwnPageArePlainUnderABoldHeading) {
    SampleInvoice invoice;
    invoice.notes = numberedLines(40);
    const PdfReader pdf(invoice.document());
    const PdfContent content(pdf, 2);
    EXPECT_EQ(content.wordsIn(invoiceHeading), "Anmerkungen zur Rechnung RE-2026-0042");
    EXPECT_EQ(content.wordsIn(invoiceStrong), "");
    EXPECT_EQ(content.styleOf("Zeile 1"), invoiceText);
    EXPECT_EQ(content.styleOf("Zeile 40"), invoiceText);
    EXPECT_TRUE(content.strokes().empty());
}

TEST(InvoicePdfStyle, shortNotesAreAsLargeAsTheLinesBesideThem) {
    SampleInvoice invoice;
    invoice.notes = "Vielen Dank.";
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(PdfContent(pdf).styleOf("Vielen Dank."), invoiceText);
}

} // namespace
} // namespace brisklog::test
