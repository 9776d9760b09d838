#include "platform/dialogs/PdfFileName.h"

#include "foundation/Text.h"

#include <gtest/gtest.h>
#include <set>

namespace brisklog::test {
namespace {

TEST(PdfFileName, anOrdinaryNameStaysAsItIs) {
    EXPECT_EQ(pdfFileName("Rechnung_Website_2024-03-07.pdf"), "Rechnung_Website_2024-03-07.pdf");
    EXPECT_EQ(pdfFileName("Grüße & mehr (2).pdf"), "Grüße & mehr (2).pdf");
    EXPECT_EQ(pdfFileName("日本語.pdf"), "日本語.pdf");
}

TEST(PdfFileName, aMissingEndingIsAdded) {
    EXPECT_EQ(pdfFileName("Website"), "Website.pdf");
    EXPECT_EQ(pdfFileName("Website.PDF"), "Website.pdf");
    EXPECT_EQ(pdfFileName("Website.2024"), "Website.2024.pdf");
}

TEST(PdfFileName, nothingLeadsOutOfTheFolder) {
    EXPECT_EQ(pdfFileName("Rechnung_Web/Shop_2024.pdf"), "Rechnung_Web-Shop_2024.pdf");
    EXPECT_EQ(pdfFileName("/etc/passwd.pdf"), "-etc-passwd.pdf");
    EXPECT_EQ(pdfFileName("../../x.pdf"), "-..-x.pdf");
    EXPECT_EQ(pdfFileName("~root.pdf"), "-root.pdf");
    EXPECT_EQ(pdfFileName("...."), "Dokument.pdf");
}

TEST(PdfFileName, controlCharactersAreReplaced) {
    EXPECT_EQ(pdfFileName("a\nb\tc.pdf"), "a-b-c.pdf");
    EXPECT_EQ(pdfFileName(std::string_view("a\0b.pdf", 7)), "a-b.pdf");
    EXPECT_EQ(pdfFileName("a\x7F"
                          "b.pdf"),
              "a-b.pdf");
    EXPECT_EQ(pdfFileName("a\xC2\x85\xC2\x9F"
                          "b\xC2\xA0z.pdf"),
              "a--b\xC2\xA0z.pdf");
}

TEST(PdfFileName, theFileIsNotHidden) {
    EXPECT_EQ(pdfFileName(".Website.pdf"), "Website.pdf");
    EXPECT_EQ(pdfFileName(" . . Website.pdf"), "Website.pdf");
}

TEST(PdfFileName, theNameIsNeverEmpty) {
    for (const char* const suggestion : {"", " ", ".", "..", ".pdf", " .pdf", "..pdf", "  .PDF "})
        EXPECT_EQ(pdfFileName(suggestion), "Dokument.pdf") << '"' << suggestion << '"';
}

TEST(PdfFileName, aLongNameIsCutAtACharacter) {
    EXPECT_EQ(pdfFileName(std::string(300, 'x') + ".pdf"), std::string(251, 'x') + ".pdf");
    EXPECT_EQ(pdfFileName(std::string(251, 'x') + ".pdf").size(), 255u);
    std::string umlauts;
    for (int count = 0; count < 200; ++count)
        umlauts += "ü";
    const std::string name = pdfFileName(umlauts + ".pdf");
    EXPECT_EQ(name.size(), 254u) << "251 bytes would end inside a character";
    EXPECT_TRUE(text::isValidUtf8(name));
}

TEST(PdfFileName, brokenTextIsReplaced) { EXPECT_EQ(pdfFileName("a\xFF\xC3.pdf"), "a--.pdf"); }

const auto nothingIsTaken = [](const std::filesystem::path&) { return false; };

TEST(PdfFileName, aChosenPdfFileIsTakenAsItIs) {
    EXPECT_EQ(withPdfEnding("/home/x/a.pdf", [](const auto&) { return true; }), "/home/x/a.pdf");
    EXPECT_EQ(withPdfEnding("/home/x/a.PDF", nothingIsTaken), "/home/x/a.PDF");
}

TEST(PdfFileName, aChosenFileWithoutTheEndingGetsIt) {
    EXPECT_EQ(withPdfEnding("/home/x/a", nothingIsTaken), "/home/x/a.pdf");
    EXPECT_EQ(withPdfEnding("/home/x.y/a.txt", nothingIsTaken), "/home/x.y/a.txt.pdf");
    EXPECT_EQ(withPdfEnding("/home/x/" + std::string(255, 'n'), nothingIsTaken).filename().string().size(),
              255u);
}

TEST(PdfFileName, aFileTheUserWasNotAskedAboutIsNotReplaced) {
    const std::set<std::filesystem::path> taken{"/home/x/a.pdf", "/home/x/a 2.pdf"};
    EXPECT_EQ(withPdfEnding("/home/x/a", [&taken](const auto& file) { return taken.contains(file); }),
              "/home/x/a 3.pdf");
}

} // namespace
} // namespace brisklog::test
