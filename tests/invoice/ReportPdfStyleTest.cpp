#include "invoice/ReportSample.h"
#include "support/PdfContent.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr PdfStyle reportText{10, PdfWeight::regular, grey(0)};
constexpr PdfStyle reportTitle{18, PdfWeight::bold, grey(0)};
constexpr PdfStyle reportSubtitle{12, PdfWeight::regular, grey(0)};
constexpr PdfStyle reportColumnTitle{12, PdfWeight::bold, grey(1)};
constexpr PdfStyle reportCell{11, PdfWeight::regular, grey(0)};
constexpr PdfStyle reportTotal{12, PdfWeight::bold, grey(0)};

constexpr PdfColour barGrey = grey(0.2);
constexpr PdfColour stripeGrey = grey(0.95);

PdfArea stripeAt(double top) { return {50, top, 495, 35, stripeGrey}; }

TEST(ReportPdfStyle, everyPartHasItsSizeAndWeight) {
    const PdfReader pdf(reportOf(1).document());
    const PdfContent content(pdf);
    EXPECT_EQ(content.wordsIn(reportTitle), "Zeiterfassung: Website-Relaunch");
    EXPECT_EQ(content.wordsIn(reportSubtitle), "Erstellt am 15. November 2026 Stundensatz: 80,00 €");
    EXPECT_EQ(content.wordsIn(reportColumnTitle), "Aufgabe Startzeit Endzeit Dauer Verdienst");
    EXPECT_EQ(content.wordsIn(reportCell), "01.01.2001 01.01.2001 Aufgabe 1 1 h 80,00 € 02:00 03:00");
    EXPECT_EQ(content.wordsIn(reportTotal), "Gesamtdauer: 1 h Gesamtverdienst: 80,00 €");
    EXPECT_EQ(content.styleOf("Schäfer Softwareentwicklung"), reportText);
    EXPECT_EQ(content.styleOf("Steuernummer:"), reportText);
    EXPECT_EQ(content.styleOf("IBAN:"), reportText);
}

TEST(ReportPdfStyle, theTableLooksTheSameOnFurtherPages) {
    const PdfReader pdf(reportOf(16).document());
    const PdfContent content(pdf, 2);
    EXPECT_EQ(content.wordsIn(reportColumnTitle), "Aufgabe Startzeit Endzeit Dauer Verdienst");
    EXPECT_EQ(content.styleOf("Aufgabe 16"), reportCell);
    EXPECT_EQ(content.styleOf("Gesamtverdienst:"), reportTotal);
    EXPECT_EQ(content.styleOf("Seite 2 von 2"), reportText);
}

TEST(ReportPdfStyle, aNameOnTwoLinesIsAsLargeAsAnother) {
    ReportSample report;
    report.project.entries = {billedEntry("Abstimmung der Anforderungen mit allen Beteiligten", 0, 60)};
    const PdfReader pdf(report.document());
    const PdfContent content(pdf);
    EXPECT_EQ(content.styleOf("Abstimmung"), reportCell);
    EXPECT_EQ(content.styleOf("Beteiligten"), reportCell);
}

TEST(ReportPdfStyle, theBarIsDarkAndEverySecondRowLightGrey) {
    const PdfReader pdf(reportOf(17).document());
    const PdfContent first(pdf);
    ASSERT_EQ(first.areas().size(), 8U);
    EXPECT_EQ(first.areas()[0], (PdfArea{50, 215, 495, 30, barGrey}));
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(first.areas()[static_cast<std::size_t>(row) + 1], stripeAt(255 + 35 + 70 * row));
    const PdfContent second(pdf, 2);
    EXPECT_EQ(second.areas(), (std::vector{PdfArea{50, 60, 495, 30, barGrey}, stripeAt(100)}));
    EXPECT_TRUE(first.strokes().empty() && second.strokes().empty());
}

} // namespace
} // namespace brisklog::test
