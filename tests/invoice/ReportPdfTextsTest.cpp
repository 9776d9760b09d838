#include "invoice/ReportSample.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>
#include <limits>
#include <map>

namespace brisklog::test {
namespace {

ReportSample reportWith(std::vector<TimeEntry> entries) {
    ReportSample report;
    report.project.entries = std::move(entries);
    return report;
}

TEST(ReportPdf, isASoundA4Document) {
    const PdfReader pdf(ReportSample().document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.pageCount(), 1);
    EXPECT_EQ(pdf.information("MediaBox"), "0.00     0.00   595.00   842.00");
}

TEST(ReportPdf, everyTextCanBeCopiedInReadingOrder) {
    ReportSample report = reportWith({billedEntry("Entwurf (1)", 0, 90)});
    report.sender.email = "j@s.example";
    EXPECT_EQ(PdfReader(report.document()).copiedText(),
              withoutBlanks("Schäfer Softwareentwicklung Jürgen Schäfer-Größmann Königsstraße 27 a "
                            "80331 München Tel: +49 89 123456-78 E-Mail: j@s.example "
                            "Web: www.schaefer-groessmann.de Steuernummer: 143/815/08155 "
                            "USt-IdNr.: DE123456789 Zeiterfassung: Website-Relaunch "
                            "Erstellt am 15. November 2026 Stundensatz: 80,00 € "
                            "Aufgabe Startzeit Endzeit Dauer Verdienst "
                            "Entwurf (1) 01.01.2001 01:00 01.01.2001 02:30 1 h 30 min 120,00 € "
                            "Gesamtdauer: 1 h 30 min Gesamtverdienst: 120,00 € "
                            "Bankverbindung: Münchner Sparbank eG IBAN: DE89 3704 0044 0532 0130 00 "
                            "BIC: COBADEFFXXX"));
}

TEST(ReportPdf, withoutARateNothingIsSaidOfMoney) {
    ReportSample report = reportWithoutRate(3);
    report.project.entries[1].hourlyRate = 95;
    const PdfReader pdf(report.document());
    EXPECT_TRUE(pdf.find("Aufgabe Startzeit Endzeit Dauer"));
    EXPECT_TRUE(pdf.find("Gesamtdauer: 3 h"));
    for (const char* const text : {"Stundensatz:", "Verdienst", "Gesamtverdienst:", "€"})
        EXPECT_THAT(pdf.copiedText(), testing::Not(testing::HasSubstr(text)));
}

TEST(ReportPdf, aRateOfZeroIsARate) {
    ReportSample report;
    report.project.hourlyRate = 0;
    const PdfReader pdf(report.document());
    EXPECT_TRUE(pdf.find("Stundensatz: 0,00 €"));
    EXPECT_TRUE(pdf.find("Aufgabe 1 1 h 0,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 0,00 €"));
}

TEST(ReportPdf, earningsAreAtTheProjectsRateEvenWhereAnEntryHasItsOwn) {
    const PdfReader pdf(reportWith({billedEntry("Eigener", 0, 60, 95.5)}).document());
    EXPECT_TRUE(pdf.find("Eigener 1 h 80,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 80,00 €"));
}

TEST(ReportPdf, entriesStandInTheProjectsOrderAndInvoicedOnesAreAmongThem) {
    std::vector<TimeEntry> entries{billedEntry("spät", 500, 60), billedEntry("früh", 0, 60),
                                   billedEntry("mittags", 250, 60)};
    entries[1].isInvoiced = true;
    const PdfReader pdf(reportWith(entries).document());
    const auto late = pdf.find("spät");
    const auto early = pdf.find("früh");
    const auto noon = pdf.find("mittags");
    ASSERT_TRUE(late && early && noon);
    EXPECT_LT(late->top, early->top);
    EXPECT_LT(early->top, noon->top);
    EXPECT_TRUE(pdf.find("Gesamtdauer: 3 h"));
}

TEST(ReportPdf, aRunningEntryShowsNoEndAndCountsUpToNow) {
    ReportSample report;
    TimeEntry running = billedEntry("Läuft noch", 0, 0);
    running.startTime = report.now.addingSeconds(-2 * 3600 - 59);
    running.endTime.reset();
    report.project.entries = {running};
    const PdfReader pdf(report.document());
    EXPECT_TRUE(pdf.find("Läuft noch 2 h 161,31 €"));
    EXPECT_TRUE(pdf.find("Gesamtdauer: 2 h"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 161,31 €"));
    EXPECT_EQ(placesOf(pdf, "15.11.2026").size(), 1U);
    EXPECT_FALSE(pdf.find("--"));
}

TEST(ReportPdf, totalsAreSumsOfTheExactFigures) {
    ReportSample report =
        reportWith({billedEntry("a", 0, 1.5), billedEntry("b", 2, 1.5), billedEntry("c", 4, 1.5)});
    report.project.hourlyRate = 1;
    const PdfReader pdf(report.document());
    EXPECT_TRUE(pdf.find("a 1 min 0,02 €"));
    EXPECT_TRUE(pdf.find("Gesamtdauer: 4 min"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 0,08 €"));
}

TEST(ReportPdf, anEntryThatEndsBeforeItBeganIsNegative) {
    const PdfReader pdf(reportWith({billedEntry("Rückwärts", 100, -90)}).document());
    EXPECT_TRUE(pdf.find("Rückwärts -1 h 30 min -120,00 €"));
}

TEST(ReportPdf, figuresThatAreNotFiniteAreWrittenAsNothing) {
    TimeEntry endless = billedEntry("Endlos", 0, 60);
    endless.endTime = Date{std::numeric_limits<double>::infinity()};
    const PdfReader pdf(reportWith({endless}).document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_TRUE(pdf.find("Endlos 0 min 0,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtdauer: 0 min"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 0,00 €"));
}

TEST(ReportPdf, numbersTooLongForTheirColumnCoverNoOthers) {
    ReportSample report = reportWith({billedEntry("Sehr teuer", 0, 6e9), billedEntry("Später", 1e12, 60)});
    report.project.hourlyRate = 1e12;
    const PdfReader pdf(report.document());
    EXPECT_EQ(pdf.complaints(), "");
    const std::string text = pdf.copiedText();
    EXPECT_THAT(text, testing::HasSubstr("100.000.000.000.000.000.000,00€"));
    EXPECT_THAT(text, testing::HasSubstr("100000000h"));
    expectNothingPrintedOver(pdf);
    for (const PdfWord& word : pdf.words())
        if (word.box.left < 390) {
            EXPECT_LE(word.box.right, 545 + placeTolerance) << word.text;
        }
}

TEST(ReportPdf, longTextsEndInAnEllipsisInsideTheirPlace) {
    ReportSample report = reportWith({billedEntry(std::string(2000, 't'), 0, 60)});
    report.project.name = std::string(2000, 'p');
    const PdfReader pdf(report.document());
    std::map<char, double> rights;
    for (const PdfWord& word : pdf.words())
        if (word.text.ends_with("…"))
            rights[word.text[0]] = word.box.right;
    EXPECT_LE(rights['t'], 50 + 495 * 0.4 - 5 + placeTolerance);
    EXPECT_LE(rights['p'], 50 + 335 + placeTolerance);
    for (const char first : {'t', 'p'})
        EXPECT_GT(rights[first], 0) << first;
    expectNothingPrintedOver(pdf);
}

} // namespace
} // namespace brisklog::test
