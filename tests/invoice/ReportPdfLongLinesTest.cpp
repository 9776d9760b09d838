#include "invoice/ReportSample.h"
#include "support/PdfPlaces.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

constexpr double taskTop = 255;
constexpr double taskHeight = 35;
constexpr double senderLeft = 395;
constexpr double barTop = 215;
constexpr double taskRight = 50 + 495 * 0.4 - 5;

const std::string longTask = "Überarbeitung der Bildergalerie für Mobilgeräte";

ReportSample reportWithTask(const std::string& taskName) {
    ReportSample report;
    report.project.entries = {billedEntry("Davor", 0, 60), billedEntry(taskName, 60, 60),
                              billedEntry("Danach", 120, 60)};
    return report;
}

/// The words of the second row's task name, line by line.
std::vector<std::string> taskLines(const PdfReader& pdf) {
    std::vector<std::string> lines;
    double top = 0;
    for (const PdfWord& word : pdf.words()) {
        const bool isInRow =
            word.box.top > taskTop + taskHeight && word.box.bottom < taskTop + 2 * taskHeight;
        if (!isInRow || word.box.left > taskRight)
            continue;
        EXPECT_LE(word.box.right, taskRight + placeTolerance) << word.text;
        if (lines.empty() || word.box.top > top + 1)
            lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word.text;
        top = word.box.top;
    }
    return lines;
}

TEST(ReportPdfLongLines, theSendersEmailIsWhole) {
    const PdfReader pdf(ReportSample().document());
    const auto email = pdf.find("E-Mail: juergen@schaefer-groessmann.de");
    ASSERT_TRUE(email);
    EXPECT_NEAR(email->left, senderLeft, placeTolerance);
    EXPECT_NEAR(email->top, 125, placeTolerance);
    EXPECT_LE(email->right, senderLeft + 190 + placeTolerance);
}

TEST(ReportPdfLongLines, ibansOfAllLengthsAreWhole) {
    for (const char* const iban : longIbans) {
        ReportSample report;
        report.sender.iban = iban;
        const PdfReader pdf(report.document());
        expectLine(pdf, "IBAN: " + std::string(iban), 365, 64);
        expectLine(pdf, "BIC: COBADEFFXXX", 365, 50);
    }
}

TEST(ReportPdfLongLines, linesOfTheSenderTooLongAtEightPointsGoOnInFurtherLines) {
    ReportSample report;
    report.sender.companyName = "Gesellschaft für angewandte Oberflächentechnik und Maschinenbau Süd mbH";
    report.sender.address = "Hintere Sankt-Bartholomäus-Kirchenstraße 271 a, Aufgang C";
    report.sender.email = "rechnungswesen.und.buchhaltung@oberflaechentechnik-sued.example";
    const PdfReader pdf(report.document());
    for (const std::string& line : {report.sender.companyName.get(), report.sender.address.get(),
                                    "E-Mail: " + report.sender.email.get()})
        EXPECT_THAT(pdf.copiedText(), HasSubstr(withoutBlanks(line)));
    expectNothingPrintedOver(pdf);
    const auto last = pdf.find("USt-IdNr.: DE123456789");
    ASSERT_TRUE(last);
    EXPECT_NEAR(last->left, senderLeft, placeTolerance);
    EXPECT_LE(last->bottom, barTop);
}

TEST(ReportPdfLongLines, aBankLineOfTwoLinesGrowsUpwardsAndNeverIntoTheRows) {
    for (const int rows : {3, 14}) {
        ReportSample report = reportOf(rows);
        report.sender.bankName = "Vereinigte Volks- und Raiffeisengenossenschaftsbank im Oberen Allgäu "
                                 "eingetragene Genossenschaft";
        const PdfReader pdf(report.document());
        const int page = rows == 14 ? 2 : 1;
        ASSERT_EQ(pdf.pageCount(), page);
        expectLine(pdf, "IBAN: DE89 3704 0044 0532 0130 00", 365, 64, 14, page);
        expectLine(pdf, "BIC: COBADEFFXXX", 365, 50, 14, page);
        EXPECT_THAT(pdf.copiedText(), HasSubstr(withoutBlanks(report.sender.bankName.get())));
        expectNothingPrintedOver(pdf);
    }
}

TEST(ReportPdfLongLines, namesAndNumbersOfAnyLengthAreCompleteAndNothingIsPrintedOver) {
    ReportSample report;
    const auto endless = [](char letter) { return "A" + std::string(700, letter) + "Z"; };
    char letter = 'a';
    for (auto* field :
         {&report.sender.companyName, &report.sender.fullName, &report.sender.address, &report.sender.city,
          &report.sender.phone, &report.sender.email, &report.sender.website, &report.sender.taxId,
          &report.sender.vatId, &report.sender.bankName, &report.sender.iban, &report.sender.bic})
        *field = endless(letter++);
    const PdfReader pdf(report.document());
    EXPECT_EQ(pdf.complaints(), "");
    const std::string text = pdf.copiedText();
    for (char used = 'a'; used < letter; ++used)
        EXPECT_THAT(text, HasSubstr(endless(used))) << used;
    expectNothingPrintedOver(pdf);
    for (const PdfWord& word : pdf.words())
        if (word.box.left > senderLeft - 1 && word.text.find("aaa") != word.text.npos) {
            EXPECT_LE(word.box.bottom, barTop);
        }
}

TEST(ReportPdfLongLines, aTaskNameTooLongForOneLineWrapsAtItsWords) {
    const PdfReader pdf(reportWithTask(longTask).document());
    const auto lines = taskLines(pdf);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0] + " " + lines[1], longTask);
    // Beside the two lines of the start.
    const auto first = pdf.find(lines[0]);
    const auto second = pdf.find(lines[1]);
    ASSERT_TRUE(first && second);
    EXPECT_NEAR(first->left, 55, placeTolerance);
    EXPECT_NEAR(first->top, taskTop + taskHeight + 4, placeTolerance);
    EXPECT_NEAR(second->left, 55, placeTolerance);
    EXPECT_NEAR(second->top, taskTop + taskHeight + 18, placeTolerance);
    expectNothingPrintedOver(pdf);
}

TEST(ReportPdfLongLines, aTaskNameTooLongForTwoLinesEndsInAnEllipsis) {
    const auto lines =
        taskLines(PdfReader(reportWithTask(longTask + " und Vorführung beim Kunden").document()));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(longTask, testing::StartsWith(lines[0] + " "));
    EXPECT_THAT(lines[0] + " " + lines[1],
                testing::AllOf(testing::StartsWith(longTask), testing::EndsWith("…")));
}

TEST(ReportPdfLongLines, aWordOfTheTaskLongerThanALineIsBroken) {
    const std::string word(40, 'w');
    const auto lines = taskLines(PdfReader(reportWithTask(word).document()));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], testing::MatchesRegex("w+"));
}

TEST(ReportPdfLongLines, aTaskNameOfSeveralLinesIsOneText) {
    const auto lines = taskLines(
        PdfReader(reportWithTask("Überarbeitung\nder\r\nBildergalerie für\tMobilgeräte   \n").document()));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0] + " " + lines[1], longTask);
}

TEST(ReportPdfLongLines, blanksAroundAShortTaskNameLeaveItInTheMiddleOfItsRow) {
    const PdfReader pdf(reportWithTask("Kurz" + std::string(200, ' ')).document());
    const auto name = pdf.find("Kurz");
    ASSERT_TRUE(name);
    EXPECT_NEAR(name->top, taskTop + taskHeight + 11, placeTolerance);
    EXPECT_EQ(taskLines(pdf), std::vector<std::string>{"Kurz"});
}

} // namespace
} // namespace brisklog::test
