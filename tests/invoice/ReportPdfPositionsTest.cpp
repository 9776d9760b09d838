#include "invoice/ReportSample.h"
#include "support/PdfPictures.h"
#include "support/PdfPlaces.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr double contentLeft = 50;
constexpr double right = 545;
constexpr double senderX = 395;
constexpr double bankX = 365;
/// Left edge of the first column after the task, width of the columns from there on, and the indent of their
/// text.
constexpr double startX = 50 + 495 * 0.4;
constexpr double columnWidth = 495 * 0.15;
constexpr double indent = 5;
constexpr double firstRowTop = 255;
constexpr double laterRowTop = 100;
constexpr double rowHeight = 35;
constexpr int rowsOnFirstPage = 15;
constexpr int rowsOnLaterPages = 20;

/// Expects the phrase to begin at `x`, its top that far below the page's top edge.
void expectAt(const PdfReader& pdf, std::string_view phrase, double x, double fromTop, int page = 1) {
    expectLine(pdf, phrase, x, a4.height - fromTop, 0, page);
}

struct Band {
    double top;
    double bottom;
};

/// The areas of that brightness along the content's left edge, where there is no text.
std::vector<Band> bandsOf(const PdfReader& pdf, int brightness, int page = 1) {
    const PdfPicture picture = pdf.picture(page);
    const auto column = static_cast<int>((contentLeft + 2) * picture.pixelsPerPoint);
    std::vector<Band> bands;
    for (int row = 0; row < picture.height; ++row) {
        if (std::abs(picture.brightness(column, row) - brightness) > 1)
            continue;
        const double y = row / picture.pixelsPerPoint;
        if (bands.empty() || y - bands.back().bottom > 0.01)
            bands.push_back({y, y});
        bands.back().bottom = (row + 1) / picture.pixelsPerPoint;
    }
    return bands;
}

constexpr int dark = 51;
constexpr int stripe = 242;

void expectBar(const PdfReader& pdf, double top, int page) {
    const auto bars = bandsOf(pdf, dark, page);
    ASSERT_EQ(bars.size(), 1U) << "page " << page;
    EXPECT_NEAR(bars[0].top, top, placeTolerance);
    EXPECT_NEAR(bars[0].bottom, top + 30, placeTolerance);
    const auto ink = pdf.picture(page).inkWithin({page, 0, top + 1, a4.width, top + 29});
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, contentLeft, placeTolerance);
    EXPECT_NEAR(ink->right, right, placeTolerance);
}

TEST(ReportPdfPositions, senderLinesStandInThreeGroupsAtTheRight) {
    const PdfReader pdf(ReportSample().document());
    expectAt(pdf, "Schäfer Softwareentwicklung", senderX, 50);
    expectAt(pdf, "Jürgen Schäfer-Größmann", senderX, 64);
    expectAt(pdf, "Königsstraße 27 a", senderX, 78);
    expectAt(pdf, "80331 München", senderX, 92);
    expectAt(pdf, "Tel: +49 89 123456-78", senderX, 111);
    expectAt(pdf, "E-Mail:", senderX, 125);
    expectAt(pdf, "Web: www.schaefer-groessmann.de", senderX, 139);
    expectAt(pdf, "Steuernummer: 143/815/08155", senderX, 158);
    expectAt(pdf, "USt-IdNr.: DE123456789", senderX, 172);
}

TEST(ReportPdfPositions, emptySenderFieldsLeaveNoLine) {
    ReportSample report;
    report.sender.fullName = "";
    report.sender.postalCode = "";
    report.sender.phone = "";
    report.sender.website = "";
    report.sender.taxId = "";
    const PdfReader pdf(report.document());
    expectAt(pdf, "Schäfer Softwareentwicklung", senderX, 50);
    expectAt(pdf, "Königsstraße 27 a", senderX, 64);
    expectAt(pdf, "München", senderX, 78);
    expectAt(pdf, "E-Mail:", senderX, 97);
    expectAt(pdf, "USt-IdNr.: DE123456789", senderX, 116);
    for (const char* label : {"Tel:", "Web:", "Steuernummer:"})
        EXPECT_FALSE(pdf.find(label)) << label;
}

TEST(ReportPdfPositions, theGapsStayWhereWholeGroupsAreEmpty) {
    ReportSample report;
    clearTexts(report.sender);
    report.sender.vatId = "DE123456789";
    expectAt(PdfReader(report.document()), "USt-IdNr.: DE123456789", senderX, 60);
}

TEST(ReportPdfPositions, titleDateAndRateStandAboveTheTable) {
    const PdfReader pdf(ReportSample().document());
    expectLine(pdf, "Zeiterfassung: Website-Relaunch", contentLeft, a4.height - 150, 25);
    expectLine(pdf, "Erstellt am 15. November 2026", contentLeft, a4.height - 175, 18);
    expectLine(pdf, "Stundensatz: 80,00 €", contentLeft, a4.height - 200, 18);
}

TEST(ReportPdfPositions, theSendersLinesDoNotMoveTheTable) {
    ReportSample report;
    clearTexts(report.sender);
    const PdfReader pdf(report.document());
    expectLine(pdf, "Zeiterfassung: Website-Relaunch", contentLeft, a4.height - 150, 25);
    expectBar(pdf, 215, 1);
    expectAt(pdf, "Aufgabe 1", contentLeft + indent, firstRowTop + 11);
}

TEST(ReportPdfPositions, aDarkBarBearsTheColumnTitlesInWhite) {
    const PdfReader pdf(ReportSample().document());
    expectBar(pdf, 215, 1);
    expectAt(pdf, "Aufgabe Startzeit Endzeit Dauer Verdienst", contentLeft + indent, 220);
    expectAt(pdf, "Startzeit", startX + indent, 220);
    expectAt(pdf, "Endzeit", startX + columnWidth + indent, 220);
    expectAt(pdf, "Dauer", startX + 2 * columnWidth + indent, 220);
    expectAt(pdf, "Verdienst", startX + 3 * columnWidth + indent, 220);
    const PdfPicture picture = pdf.picture(1, 288);
    int brightest = 0;
    for (int row = 4 * 220; row < 4 * 235; ++row)
        for (int column = 4 * 55; column < 4 * 100; ++column)
            brightest = std::max(brightest, picture.brightness(column, row));
    EXPECT_EQ(brightest, 255);
}

TEST(ReportPdfPositions, withoutARateTheTaskTakesTheRoomOfTheEarnings) {
    const PdfReader pdf(reportWithoutRate(3).document());
    expectBar(pdf, 215, 1);
    constexpr double wideStartX = 50 + 495 * 0.55;
    expectAt(pdf, "Startzeit", wideStartX + indent, 220);
    expectAt(pdf, "Endzeit", wideStartX + columnWidth + indent, 220);
    expectAt(pdf, "Dauer", wideStartX + 2 * columnWidth + indent, 220);
    expectAt(pdf, "Aufgabe 2", contentLeft + indent, firstRowTop + rowHeight + 11);
    expectAt(pdf, "01.01.2001", wideStartX + indent, firstRowTop + 4);
    EXPECT_FALSE(pdf.find("Verdienst"));
}

TEST(ReportPdfPositions, cellsStandInTheirRowsAndColumns) {
    ReportSample report;
    report.project.entries = {billedEntry("Aufgabe 1", 0, 60), billedEntry("Aufgabe 2", 120, 60)};
    const PdfReader pdf(report.document());
    const auto days = placesOf(pdf, "01.01.2001");
    ASSERT_EQ(days.size(), 4U);
    const std::vector<std::string> times{"01:00", "02:00", "03:00", "04:00"};
    for (std::size_t cell = 0; cell < 4; ++cell) {
        const double x = startX + columnWidth * static_cast<double>(cell % 2) + indent;
        const std::size_t row = cell / 2;
        const double top = firstRowTop + rowHeight * static_cast<double>(row);
        EXPECT_NEAR(days[cell].left, x, placeTolerance);
        EXPECT_NEAR(days[cell].top, top + 4, placeTolerance);
        expectAt(pdf, times[cell], x, top + 18);
    }
    for (const int row : {0, 1}) {
        const double top = firstRowTop + rowHeight * row;
        const std::string cells = "Aufgabe " + std::to_string(row + 1) + " 1 h 80,00 €";
        expectAt(pdf, cells, contentLeft + indent, top + 11);
        expectNumber(pdf, cells, right - indent, a4.height - top - 11 - 14);
    }
}

TEST(ReportPdfPositions, theDurationStandsInTheMiddleOfItsColumn) {
    ReportSample report;
    report.project.entries = {billedEntry("kurz", 0, 1), billedEntry("lang", 1, 1439)};
    const PdfReader pdf(report.document());
    constexpr double middle = startX + columnWidth * 2.5;
    const auto shortOne = pdf.find("1 min");
    const auto longOne = pdf.find("23 h 59 min");
    ASSERT_TRUE(shortOne && longOne);
    EXPECT_NEAR((shortOne->left + shortOne->right) / 2, middle, placeTolerance);
    EXPECT_NEAR((longOne->left + longOne->right) / 2, middle, placeTolerance);
}

TEST(ReportPdfPositions, everySecondRowIsGreyAcrossTheContent) {
    const PdfReader pdf(reportOf(6).document());
    const auto stripes = bandsOf(pdf, stripe);
    ASSERT_EQ(stripes.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        const double top = firstRowTop + rowHeight * static_cast<double>(2 * i + 1);
        EXPECT_NEAR(stripes[i].top, top, placeTolerance);
        EXPECT_NEAR(stripes[i].bottom, top + rowHeight, placeTolerance);
    }
    const auto ink = pdf.picture(1).inkWithin({1, 0, 291, a4.width, 293});
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, contentLeft, placeTolerance);
    EXPECT_NEAR(ink->right, right, placeTolerance);
}

TEST(ReportPdfPositions, fifteenRowsFitOnTheFirstPageAndTwentyOnEachFurtherOne) {
    const PdfReader pdf(reportOf(rowsOnFirstPage + rowsOnLaterPages + 1).document());
    ASSERT_EQ(pdf.pageCount(), 3);
    expectAt(pdf, "Aufgabe 15", contentLeft + indent, firstRowTop + 14 * rowHeight + 11, 1);
    EXPECT_FALSE(pdf.find("Aufgabe 16", 1));
    for (const int page : {2, 3}) {
        expectBar(pdf, 60, page);
        expectAt(pdf, "Aufgabe Startzeit Endzeit Dauer Verdienst", contentLeft + indent, 65, page);
    }
    expectAt(pdf, "Aufgabe 16", contentLeft + indent, laterRowTop + 11, 2);
    expectAt(pdf, "Aufgabe 35", contentLeft + indent, laterRowTop + 19 * rowHeight + 11, 2);
    expectAt(pdf, "Aufgabe 36", contentLeft + indent, laterRowTop + 11, 3);
    EXPECT_FALSE(pdf.find("Zeiterfassung:", 2));
    EXPECT_FALSE(pdf.find("Steuernummer:", 2));
}

TEST(ReportPdfPositions, theStripesGoOnAfterAPageBreak) {
    const PdfReader pdf(reportOf(rowsOnFirstPage + 3).document());
    const auto stripes = bandsOf(pdf, stripe, 2);
    ASSERT_EQ(stripes.size(), 2U);
    EXPECT_NEAR(stripes[0].top, laterRowTop, placeTolerance);
    EXPECT_NEAR(stripes[1].top, laterRowTop + 2 * rowHeight, placeTolerance);
}

TEST(ReportPdfPositions, totalsFollowTheLastRow) {
    const PdfReader pdf(ReportSample().document());
    const double top = firstRowTop + 3 * rowHeight + 10;
    expectAt(pdf, "Gesamtdauer: 3 h", contentLeft, top);
    expectAt(pdf, "Gesamtverdienst: 240,00 €", contentLeft, top + 18);
}

TEST(ReportPdfPositions, bankLinesStandAtTheFootWithTheLastAtFifty) {
    const PdfReader pdf(ReportSample().document());
    expectLine(pdf, "Bankverbindung: Münchner Sparbank eG", bankX, 78);
    expectLine(pdf, "IBAN: DE89 3704 0044 0532 0130 00", bankX, 64);
    expectLine(pdf, "BIC: COBADEFFXXX", bankX, 50);
}

TEST(ReportPdfPositions, emptyBankFieldsLeaveNoLine) {
    ReportSample report;
    report.sender.bic = "";
    report.sender.bankName = "";
    const PdfReader pdf(report.document());
    expectLine(pdf, "IBAN: DE89 3704 0044 0532 0130 00", bankX, 50);
    EXPECT_FALSE(pdf.find("Bankverbindung:"));
    EXPECT_FALSE(pdf.find("BIC:"));
}

/// Expects totals and bank lines on that page, which must be the last.
void expectEnding(const PdfReader& pdf, int page, double totalsTop) {
    ASSERT_EQ(pdf.pageCount(), page);
    expectAt(pdf, "Gesamtdauer:", contentLeft, totalsTop, page);
    expectLine(pdf, "BIC: COBADEFFXXX", bankX, 50, 14, page);
    for (int before = 1; before < page; ++before)
        for (const char* const word : {"Gesamtdauer:", "Gesamtverdienst:", "IBAN:", "BIC:"})
            EXPECT_FALSE(pdf.find(word, before)) << word << " on page " << before;
    expectNothingPrintedOver(pdf);
}

TEST(ReportPdfPositions, totalsThatFitStayUnderTheirRows) {
    for (const auto report : {&reportOf, &reportWithoutRate}) {
        expectEnding(PdfReader(report(14).document()), 1, firstRowTop + 14 * rowHeight + 10);
        expectEnding(PdfReader(report(rowsOnFirstPage + 18).document()), 2,
                     laterRowTop + 18 * rowHeight + 10);
    }
}

TEST(ReportPdfPositions, totalsThatDoNotFitBeginAPageOfTheirOwn) {
    for (const auto report : {&reportOf, &reportWithoutRate}) {
        const PdfReader pdf(report(15).document());
        expectEnding(pdf, 2, 50);
        EXPECT_TRUE(bandsOf(pdf, dark, 2).empty());
        for (const int rows : {19, 20})
            expectEnding(PdfReader(report(rowsOnFirstPage + rows).document()), 3, 50);
    }
}

TEST(ReportPdfPositions, withoutEntriesTheTotalsFollowTheBar) {
    const PdfReader pdf(reportOf(0).document());
    expectBar(pdf, 215, 1);
    expectEnding(pdf, 1, firstRowTop + 10);
    expectAt(pdf, "Gesamtdauer: 0 min", contentLeft, firstRowTop + 10);
    expectAt(pdf, "Gesamtverdienst: 0,00 €", contentLeft, firstRowTop + 28);
}

void expectLogoOnReport(const std::string& logo, double width, double height) {
    ReportSample report;
    report.sender.logoData = logo;
    const PdfReader pdf(report.document());
    EXPECT_EQ(pdf.complaints(), "");
    const auto ink = pdf.picture(1, 288).inkWithin({1, 200, 0, 390, 126});
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, (a4.width - width) / 2, placeTolerance);
    EXPECT_NEAR(ink->right, (a4.width + width) / 2, placeTolerance);
    EXPECT_NEAR(ink->top, 50, placeTolerance);
    EXPECT_NEAR(ink->bottom, 50 + height, placeTolerance);
}

TEST(ReportPdfPositions, theLogoShrinksToSeventyFivePointsAndKeepsItsShape) {
    expectLogoOnReport(pngImage(150, 75), 75, 37.5);
    expectLogoOnReport(pngImage(75, 150), 37.5, 75);
    expectLogoOnReport(jpegImage(750, 750), 75, 75);
}

TEST(ReportPdfPositions, theLogoIsNeverEnlarged) { expectLogoOnReport(pngImage(30, 20), 30, 20); }

TEST(ReportPdfPositions, aLogoThatDoesNotDecodeIsLeftOut) {
    ReportSample report;
    report.sender.logoData = "kein Bild";
    const PdfReader pdf(report.document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.picture(1).inkWithin({1, 200, 0, 390, 124}), std::nullopt);
    EXPECT_EQ(pdf.copiedText(), PdfReader(ReportSample().document()).copiedText());
}

} // namespace
} // namespace brisklog::test
