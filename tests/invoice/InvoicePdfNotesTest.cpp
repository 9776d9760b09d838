#include "invoice/SampleInvoice.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>
#include <numeric>

namespace brisklog::test {
namespace {

constexpr double footerTop = a4.height - 218;
constexpr double footerBottom = a4.height - 78;
constexpr double notesRight = 50 + 495 * 0.33 - 10;
/// Reaches the tax and bank lines.
constexpr const char* veryLongName =
    "Maximiliane Alexandra Freifrau von und zu Hohenlohe-Waldenburg-Schillingsfürst";

SampleInvoice withNotes(const std::string& notes, int rows = 3) {
    SampleInvoice invoice;
    invoice.notes = notes;
    invoice.entries = billedEntries(rows);
    return invoice;
}

/// The page with the sum; 0 where there is none.
int pageOfTotal(const PdfReader& pdf) {
    int page = pdf.pageCount();
    while (page > 0 && !pdf.find("Gesamtbetrag:", page))
        --page;
    return page;
}

/// All text without the lines that say which page it is.
std::string copiedWithoutPageNumbers(const PdfReader& pdf) {
    std::string text = pdf.copiedText();
    const std::string count = std::to_string(pdf.pageCount());
    for (int page = 2; page <= pdf.pageCount(); ++page) {
        const std::string line = "RechnungRE-2026-0042·Seite" + std::to_string(page) + "von" + count;
        const std::size_t at = text.find(line);
        EXPECT_NE(at, text.npos) << line;
        if (at != text.npos)
            text.erase(at, line.size());
    }
    return text;
}

/// Expects everything that must hold for an invoice with long notes.
void expectSound(const PdfReader& pdf, const std::string& notes) {
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_THAT(copiedWithoutPageNumbers(pdf), testing::HasSubstr(withoutBlanks(notes)));
    expectNothingPrintedOver(pdf);
    const int last = pdf.pageCount();
    const int totalPage = pageOfTotal(pdf);
    for (int page = 1; page <= last; ++page) {
        const auto footer = pdf.find("Steuernummer: 143/815/08155", page);
        ASSERT_EQ(footer.has_value(), page == totalPage || page == last) << page;
        if (footer) {
            EXPECT_NEAR(footer->top, footerTop, placeTolerance);
        }
    }
}

/// Expects sum, closing text and footer under the table on the first page, the notes on the second.
void expectNotesOnASecondPage(const PdfReader& pdf) {
    EXPECT_EQ(pageOfTotal(pdf), 1);
    EXPECT_TRUE(pdf.find("Ich danke Ihnen für die gute Zusammenarbeit.", 1));
    EXPECT_FALSE(pdf.find("Zeile 1", 1));
    const auto heading = pdf.find("Anmerkungen zur Rechnung RE-2026-0042", 2);
    const auto note = pdf.find("Zeile 1", 2);
    ASSERT_TRUE(heading && note);
    EXPECT_NEAR(heading->left, 50, placeTolerance);
    EXPECT_NEAR(heading->top, a4.height - 792, 1);
    EXPECT_NEAR(note->left, 50, placeTolerance);
    EXPECT_GT(note->top, heading->bottom + 5);
    EXPECT_LT(note->top, heading->bottom + 30);
    EXPECT_FALSE(pdf.find("Beschreibung", 2));
}

TEST(InvoicePdfNotes, standInTheLeftBlockAtTheFoot) {
    const std::string notes = "Leistungszeitraum: 1. bis 14. November 2026.\n"
                              "Gemäß § 19 UStG wird keine Umsatzsteuer berechnet.";
    const PdfReader pdf(withNotes(notes).document());
    EXPECT_EQ(pdf.pageCount(), 1);
    expectSound(pdf, notes);
    const auto first = pdf.find("Leistungszeitraum:");
    ASSERT_TRUE(first);
    EXPECT_NEAR(first->left, 50, placeTolerance);
    EXPECT_NEAR(first->top, footerTop, placeTolerance);
    for (const PdfWord& word : pdf.words())
        if (word.box.top > footerTop - placeTolerance && word.box.left < rightColumn - 1) {
            EXPECT_LE(word.box.right, notesRight + placeTolerance) << word.text;
        }
}

TEST(InvoicePdfNotes, fillTheBlockToItsRightEdge) {
    std::string notes;
    for (int word = 0; word < 60; ++word)
        notes += "ab ";
    const PdfReader pdf(withNotes(notes).document());
    double widest = 0;
    for (const PdfWord& word : pdf.words())
        if (word.text == "ab")
            widest = std::max(widest, word.box.right);
    EXPECT_LE(widest, notesRight + placeTolerance);
    // One word more would not fit.
    EXPECT_GT(widest, notesRight - 15);
}

TEST(InvoicePdfNotes, beginTwelvePointsUnderAClosingTextThatReachesLower) {
    const PdfReader pdf(withNotes("Hinweis", 9).document());
    EXPECT_EQ(pdf.pageCount(), 1);
    const auto note = pdf.find("Hinweis");
    const auto names = placesOf(pdf, "Jürgen");
    ASSERT_TRUE(note);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_GT(names[1].bottom, footerTop);
    EXPECT_NEAR(note->top, names[1].bottom + 12, placeTolerance);
    expectSound(pdf, "Hinweis");
}

TEST(InvoicePdfNotes, thatAreEmptyOrBlankLeaveNoTrace) {
    const std::string without = PdfReader(withNotes("", 11).document()).copiedText();
    for (const char* blank : {" ", "\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n\n", "\t \r\n\u00A0"}) {
        const PdfReader pdf(withNotes(blank, 11).document());
        EXPECT_EQ(pdf.pageCount(), 1);
        EXPECT_EQ(pdf.copiedText(), without);
    }
}

TEST(InvoicePdfNotes, trailingLineBreaksTakeNoRoom) {
    EXPECT_EQ(PdfReader(withNotes("Hinweis" + std::string(50, '\n')).document()).pageCount(), 1);
}

TEST(InvoicePdfNotes, thatFitExactlyStayOnThePage) {
    // Eleven lines of a little more than twelve points fill the block of 140.
    const PdfReader pdf(withNotes(numberedLines(11)).document());
    EXPECT_EQ(pdf.pageCount(), 1);
    expectSound(pdf, numberedLines(11));
    EXPECT_LE(pdf.find("Zeile 11")->bottom, footerBottom + placeTolerance);
}

TEST(InvoicePdfNotes, thatDoNotFitUnderTheClosingTextGoOnAPageOfTheirOwn) {
    const PdfReader pdf(withNotes(numberedLines(8), 10).document());
    ASSERT_EQ(pdf.pageCount(), 2);
    expectSound(pdf, numberedLines(8));
    expectNotesOnASecondPage(pdf);
    EXPECT_TRUE(pdf.find("Aufgabe 10", 1));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 800,00 €", 1));
}

TEST(InvoicePdfNotes, tooLongForTheBlockRunAtFullWidthOnAPageOfTheirOwn) {
    const std::string notes = numberedLines(12) + "\n" + std::string(70, 'x');
    const PdfReader pdf(withNotes(notes).document());
    ASSERT_EQ(pdf.pageCount(), 2);
    expectSound(pdf, notes);
    expectNotesOnASecondPage(pdf);
    // A single word wider than the block is not broken.
    EXPECT_TRUE(pdf.find(std::string(70, 'x'), 2));
}

TEST(InvoicePdfNotes, underALongTableGoAfterThePageWithTheSum) {
    const PdfReader pdf(withNotes(numberedLines(20), 30).document());
    ASSERT_EQ(pdf.pageCount(), 3);
    expectSound(pdf, numberedLines(20));
    EXPECT_EQ(pageOfTotal(pdf), 2);
    EXPECT_TRUE(pdf.find("Anmerkungen zur Rechnung RE-2026-0042", 3));
}

TEST(InvoicePdfNotes, standInTheBlockWhereTheSumNeedsAPageOfItsOwn) {
    SampleInvoice invoice = withNotes(numberedLines(8), 11);
    invoice.sender.fullName = veryLongName;
    const PdfReader pdf(invoice.document());
    ASSERT_EQ(pdf.pageCount(), 2);
    expectSound(pdf, numberedLines(8));
    EXPECT_EQ(pageOfTotal(pdf), 2);
    EXPECT_NEAR(pdf.find("Zeile 1", 2)->top, footerTop, placeTolerance);
}

TEST(InvoicePdfNotes, ofAnInvoiceWithoutNumberAreHeadedWithoutOne) {
    SampleInvoice invoice = withNotes(numberedLines(20));
    invoice.invoiceNumber = "";
    const PdfReader pdf(invoice.document());
    ASSERT_EQ(pdf.pageCount(), 2);
    EXPECT_TRUE(pdf.find("Anmerkungen zur Rechnung", 2));
    EXPECT_TRUE(pdf.find("Rechnung · Seite 2 von 2", 2));
}

TEST(InvoicePdfNotes, ofAnyLengthAreCompleteAndNeverBesideTheFooterAtFullWidth) {
    // Line counts around the ends of the first and of the second page.
    std::vector<int> counts(19);
    std::iota(counts.begin(), counts.end(), 40);
    for (int count = 98; count <= 120; ++count)
        counts.push_back(count);
    for (const int count : counts) {
        const PdfReader pdf(withNotes(numberedLines(count)).document());
        SCOPED_TRACE(count);
        expectSound(pdf, numberedLines(count));
        EXPECT_EQ(placesOf(pdf, "Zeile").size(), static_cast<std::size_t>(count));
        const int last = pdf.pageCount();
        bool isOnLastPage = false;
        for (const PdfBox& line : placesOf(pdf, "Zeile")) {
            isOnLastPage = isOnLastPage || line.page == last;
            EXPECT_LE(line.bottom, (line.page == last ? footerTop - 12 : footerBottom) + placeTolerance);
        }
        EXPECT_TRUE(isOnLastPage) << "the footer is alone on the last page";
    }
}

TEST(InvoicePdfNotes, ofThreeHundredLinesRunOverSeveralPages) {
    const PdfReader pdf(withNotes(numberedLines(300)).document());
    EXPECT_EQ(pdf.pageCount(), 7);
    expectSound(pdf, numberedLines(300));
}

TEST(InvoicePdfNotes, keepEmptyLinesAtAPageBreak) {
    std::string notes;
    for (int i = 0; i < 80; ++i)
        notes += "Absatz " + std::to_string(i) + "\n\n";
    const PdfReader pdf(withNotes(notes).document());
    expectSound(pdf, notes);
    const auto places = placesOf(pdf, "Absatz");
    ASSERT_EQ(places.size(), 80U);
    const double distance = places[1].top - places[0].top;
    for (std::size_t i = 1; i < places.size(); ++i)
        if (places[i].page == places[i - 1].page) {
            EXPECT_NEAR(places[i].top - places[i - 1].top, distance, placeTolerance);
        }
}

TEST(InvoicePdfNotes, ofOneWordOfFiveThousandLettersAreBroken) {
    const std::string word(5000, 'w');
    const PdfReader pdf(withNotes(word).document());
    expectSound(pdf, word);
    for (const PdfWord& part : pdf.words())
        EXPECT_LE(part.box.right, 545 + placeTolerance + (part.box.left > 300 ? 40 : 0));
}

TEST(InvoicePdfNotes, ofAHundredThousandWordsLoseNone) {
    std::string notes;
    for (int i = 0; i < 20000; ++i)
        notes += "Wort" + std::to_string(i) + (i % 100 == 99 ? "\n" : " ");
    const PdfReader pdf(withNotes(notes).document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_THAT(copiedWithoutPageNumbers(pdf), testing::HasSubstr(withoutBlanks(notes)));
    EXPECT_TRUE(pdf.find("Steuernummer: 143/815/08155", pdf.pageCount()));
}

TEST(InvoicePdfNotes, withoutTaxAndBankLinesReachDownToTheFoot) {
    SampleInvoice invoice = withNotes(numberedLines(45));
    clearTexts(invoice.sender);
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.pageCount(), 2);
    EXPECT_EQ(placesOf(pdf, "Zeile").size(), 45U);
    EXPECT_GT(placesOf(pdf, "Zeile").back().bottom, footerTop);
}

TEST(InvoicePdfNotes, aNameThatReachesTheBankLinesTakesTheClosingTextToALastPage) {
    SampleInvoice invoice = withNotes("", 11);
    invoice.sender.fullName = veryLongName;
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.pageCount(), 2);
    expectSound(pdf, "");
    EXPECT_TRUE(pdf.find("Gesamtbetrag:", 2));
}

TEST(InvoicePdfNotes, aShortNameMayStandBesideTheBankLines) {
    const PdfReader pdf(withNotes("", 11).document());
    EXPECT_EQ(pdf.pageCount(), 1);
    expectSound(pdf, "");
}

TEST(InvoicePdfNotes, areNeverPrintedOverWhateverTheNumberOfRows) {
    const std::string notes =
        "Leistungszeitraum: 1. bis 14. November 2026.\nBitte überweisen Sie den Betrag ohne Abzug.";
    for (const int rows : {0, 1, 2, 5, 6, 7, 8, 9, 10, 11, 12, 13, 40, 41, 42, 43, 44}) {
        SCOPED_TRACE(rows);
        expectSound(PdfReader(withNotes(notes, rows).document()), notes);
    }
}

} // namespace
} // namespace brisklog::test
