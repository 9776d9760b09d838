#include "invoice/ReportSample.h"
#include "support/PdfPictures.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

/// A report with this text wherever a user can type.
ReportSample reportMadeOf(const std::string& text) {
    ReportSample report;
    report.project.name = text;
    report.project.entries = {billedEntry(text, 0, 60), billedEntry("danach", 60, 60)};
    for (auto* field :
         {&report.sender.companyName, &report.sender.fullName, &report.sender.address,
          &report.sender.postalCode, &report.sender.city, &report.sender.phone, &report.sender.email,
          &report.sender.website, &report.sender.taxId, &report.sender.vatId, &report.sender.bankName,
          &report.sender.iban, &report.sender.bic})
        *field = text;
    return report;
}

/// Expects that nothing after the text was lost: the next row, the totals and the last line of the footer.
void expectCompleteReport(const PdfReader& pdf) {
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.pageCount(), 1);
    EXPECT_TRUE(pdf.find("danach 1 h 80,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtverdienst: 160,00 €"));
    EXPECT_TRUE(pdf.find("BIC:"));
    EXPECT_THAT(pdf.copiedText(), HasSubstr("BIC:"));
}

TEST(ReportPdfHostile, brokenUtf8IsReplacedEverywhere) {
    const PdfReader pdf(reportMadeOf("Gr\xFC\xDF"
                                     "e")
                            .document());
    expectCompleteReport(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("Zeiterfassung:Gr\uFFFD\uFFFDe"));
    EXPECT_THAT(pdf.copiedText(), HasSubstr("BIC:Gr\uFFFD\uFFFDe"));
}

TEST(ReportPdfHostile, controlCharactersAndLineBreaksBecomeBlanks) {
    using namespace std::string_literals;
    const PdfReader pdf(reportMadeOf("a\0b\x01"s + "c\x1B[31md\te\x7F" + "f\r\ng").document());
    expectCompleteReport(pdf);
    EXPECT_TRUE(pdf.find("Steuernummer: a b c [31md e f g"));
    EXPECT_TRUE(pdf.find("Zeiterfassung: a b c [31md e f g"));
}

TEST(ReportPdfHostile, hebrewAndArabicAreDrawnWhole) {
    for (const char* const word : {"שלום", "مرحبا"}) {
        const PdfReader pdf(reportMadeOf(word).document());
        expectCompleteReport(pdf);
        const std::string text = pdf.readText();
        int places = 0;
        for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; ++at)
            ++places;
        EXPECT_GE(places, 10) << word;
    }
}

TEST(ReportPdfHostile, emojiCanBeCopiedWhetherOrNotAFontHasThem) {
    const PdfReader pdf(reportMadeOf("😀🦄👩‍👧").document());
    expectCompleteReport(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("IBAN:😀🦄👩"));
}

TEST(ReportPdfHostile, marksThatTurnTheDirectionStayInTheirLine) {
    const PdfReader pdf(reportMadeOf("\u202Eabc\u2066def").document());
    expectCompleteReport(pdf);
    EXPECT_TRUE(pdf.find("Aufgabe Startzeit Endzeit Dauer Verdienst"));
}

TEST(ReportPdfHostile, towersOfAccentsAndInvisibleCharactersDoNoHarm) {
    std::string text = "a";
    for (int i = 0; i < 500; ++i)
        text += "\u0301\u200B\u00AD";
    expectCompleteReport(PdfReader(reportMadeOf(text).document()));
}

TEST(ReportPdfHostile, endlessTextsEverywhereGiveASoundDocument) {
    const PdfReader pdf(reportMadeOf(std::string(100'000, 'm')).document());
    expectCompleteReport(pdf);
    expectNothingPrintedOver(pdf);
}

TEST(ReportPdfHostile, markupAndPdfSyntaxAreOnlyText) {
    const std::string text = "<b>&amp;</b> (endstream) \\) Tj";
    const PdfReader pdf(reportMadeOf(text).document());
    expectCompleteReport(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("IBAN:" + withoutBlanks(text)));
}

TEST(ReportPdfHostile, aLogoOfFourHundredMillionPixelsIsLeftOut) {
    ReportSample report = reportMadeOf("x");
    report.sender.logoData = hugePng();
    const PdfReader pdf(report.document());
    expectCompleteReport(pdf);
    EXPECT_TRUE(pdf.images().empty());
}

TEST(ReportPdfHostile, absurdDatesAreDrawnInsideTheirCells) {
    ReportSample report = reportMadeOf("x");
    for (const double seconds : {1e300, -1e300, 1e15, -1e15}) {
        report.project.entries[0].startTime = Date{seconds};
        report.project.entries[0].endTime = Date{seconds};
        const PdfReader pdf(report.document());
        EXPECT_EQ(pdf.complaints(), "");
        EXPECT_TRUE(pdf.find("danach 1 h 80,00 €"));
        expectNothingPrintedOver(pdf);
    }
}

} // namespace
} // namespace brisklog::test
