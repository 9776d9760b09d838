#include "invoice/ReportSample.h"
#include "support/PdfPictures.h"
#include "support/PdfReader.h"

#include <gmock/gmock.h>
#include <sstream>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

struct Structure {
    /// The tags alone.
    std::string outline;
    /// The texts alone, in the order in which they are read, without blanks.
    std::string texts;
};

Structure structureOf(const PdfReader& pdf) {
    Structure structure;
    std::istringstream lines(pdf.structure());
    for (std::string line; std::getline(lines, line);) {
        const std::size_t begin = line.find_first_not_of(' ');
        if (begin != line.npos && line[begin] == '"')
            structure.texts += withoutBlanks(line.substr(begin + 1, line.size() - begin - 2));
        else
            structure.outline += line + "\n";
    }
    return structure;
}

std::string paragraphs(int count) {
    std::string outline;
    for (int i = 0; i < count; ++i)
        outline += "  P (block)\n";
    return outline;
}

int countIn(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size())
        ++count;
    return count;
}

TEST(ReadAloud, anInvoiceSaysItsTitleAndLanguage) {
    const PdfReader pdf(SampleInvoice().document());
    EXPECT_EQ(pdf.information("Title"), "Rechnung RE-2026-0042");
    EXPECT_EQ(pdf.language(), "de-DE");
    EXPECT_EQ(pdf.complaints(), "");
}

TEST(ReadAloud, aReportSaysItsTitleAndLanguage) {
    const PdfReader pdf(ReportSample().document());
    EXPECT_EQ(pdf.information("Title"), "Zeiterfassung: Website-Relaunch");
    EXPECT_EQ(pdf.language(), "de-DE");
    EXPECT_EQ(pdf.complaints(), "");
}

TEST(ReadAloud, anInvoiceIsReadInOrder) {
    SampleInvoice invoice;
    invoice.entries = {billedEntry("Entwurf (1)", 0, 90)};
    invoice.notes = "Leistungszeitraum: 1. bis 14. November 2026.\nOhne Abzug.";
    invoice.sender.logoData = pngImage(140, 70);
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.information("Tagged"), "yes");
    EXPECT_EQ(pdf.images().size(), 1U);
    const std::string cells = "      TD\n      TD\n      TD\n      TD\n";
    EXPECT_EQ(structureOf(pdf).outline, "Document\n" + paragraphs(5 + 3 + 4) + "  H1 (block)\n" +
                                            paragraphs(2) +
                                            "  Table (block)\n"
                                            "    TR\n      TH\n      TH\n      TH\n      TH\n"
                                            "    TR\n" +
                                            cells + "    TR\n" + cells + paragraphs(1 + 1 + 6));
    EXPECT_EQ(structureOf(pdf).texts, pdf.copiedText());
    EXPECT_THAT(pdf.structure(), HasSubstr("  H1 (block)\n    \"Rechnung\"\n"));
    EXPECT_THAT(pdf.structure(), HasSubstr("      TD\n        \"Entwurf (1)\"\n"));
    // Neither line end makes one word of two.
    EXPECT_THAT(pdf.structure(), HasSubstr("\"Leistungszeitraum: 1. bis 14. November 2026. Ohne Abzug.\""));
}

TEST(ReadAloud, aReportIsReadInOrder) {
    const std::string task = "Überarbeitung der Bildergalerie für Mobilgeräte";
    ReportSample report = reportOf(0);
    report.project.entries = {billedEntry(task, 0, 60)};
    const PdfReader pdf(report.document());
    EXPECT_EQ(pdf.information("Tagged"), "yes");
    EXPECT_EQ(structureOf(pdf).outline, "Document\n" + paragraphs(4 + 3 + 2) + "  H1 (block)\n" +
                                            paragraphs(2) +
                                            "  Table (block)\n"
                                            "    TR\n      TH\n      TH\n      TH\n      TH\n      TH\n"
                                            "    TR\n      TD\n      TD\n      TD\n      TD\n      TD\n" +
                                            paragraphs(2 + 3));
    EXPECT_EQ(structureOf(pdf).texts, pdf.copiedText());
    EXPECT_THAT(pdf.structure(), HasSubstr("\"" + task + "\""));
    EXPECT_THAT(pdf.structure(), HasSubstr("\"01.01.2001 01:00\""));
}

TEST(ReadAloud, everyPageHasItsTableAndOnlyPageNumbersAreLeftOut) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(12);
    invoice.notes = numberedLines(20);
    const PdfReader pdf(invoice.document());
    ASSERT_EQ(pdf.pageCount(), 3);
    const std::string structure = pdf.structure();
    EXPECT_EQ(countIn(structure, "Table (block)"), 2);
    EXPECT_EQ(countIn(structure, "TR\n"), 1 + 11 + 1 + 1 + 1);
    EXPECT_EQ(countIn(structure, "H1 (block)"), 2);
    EXPECT_THAT(structure, testing::Not(HasSubstr("Seite")));
    EXPECT_THAT(structure, HasSubstr("H1 (block)\n    \"Anmerkungen zur Rechnung RE-2026-0042\"\n"));
    EXPECT_THAT(structureOf(pdf).texts, HasSubstr(withoutBlanks(invoice.notes)));
}

TEST(ReadAloud, textsOfAllKindsAreReadWhole) {
    SampleInvoice invoice;
    invoice.entries = {billedEntry("Grüße 😀 שלום \U000F0000 \xFF", 0, 60), billedEntry("", 60, 60)};
    invoice.invoiceNumber = "";
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.information("Title"), "Rechnung");
    EXPECT_EQ(countIn(pdf.structure(), "TD\n"), 3 * 4);
    EXPECT_THAT(structureOf(pdf).texts, HasSubstr("Grüße😀"));
}

TEST(ReadAloud, documentsOfHundredsOfRowsAreNotBlownUpByTags) {
    SampleInvoice invoice;
    invoice.entries = billedEntries(501);
    const std::string document = invoice.document();
    EXPECT_LT(document.size(), 100'000U);
    const PdfReader pdf(document);
    EXPECT_EQ(pdf.information("Tagged"), "no");
    EXPECT_EQ(pdf.language(), "de-DE");
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(PdfReader(reportOf(501).document()).information("Tagged"), "no");
}

} // namespace
} // namespace brisklog::test
