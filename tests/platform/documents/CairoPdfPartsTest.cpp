#include "platform/documents/CairoPdfFacility.h"

#include "platform/documents/OnePage.h"
#include "support/PdfPictures.h"
#include "support/PdfReader.h"

#include <gmock/gmock.h>
#include <tuple>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

constexpr TextStyle plainText{.pointSize = 10};
constexpr PageRectangle firstLine{100, 700, 200, 14};

TEST(CairoPdfParts, saysItsTitleAndThatItIsGerman) {
    const auto bytes =
        onePage([](PdfDocument&) {}, {.creator = {}, .author = {}, .title = "Größe (1)\n\xFF"});
    const PdfReader pdf(bytes);
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.information("Title"), "Größe (1) \uFFFD");
    EXPECT_EQ(pdf.language(), "de-DE");
}

TEST(CairoPdfParts, partsAreReadInTheOrderInWhichTheyBegin) {
    const PdfReader pdf(onePage([](PdfDocument& page) {
        {
            const PdfPart heading(page, PdfRole::heading);
            page.drawLine("Titel", firstLine, plainText);
        }
        page.drawLine("nur zu sehen", {100, 600, 200, 14}, plainText);
        const PdfPart table(page, PdfRole::table);
        const PdfPart row(page, PdfRole::tableRow);
        {
            const PdfPart title(page, PdfRole::columnTitle);
            page.drawLine("Spalte", {100, 500, 200, 14}, plainText);
        }
        const PdfPart cell(page, PdfRole::tableCell);
        page.drawNumber("12", {100, 400, 200, 14}, plainText);
    }));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.structure(), "Document\n"
                               "  H1 (block)\n    \"Titel\"\n"
                               "  Table (block)\n    TR\n"
                               "      TH\n        \"Spalte\"\n"
                               "      TD\n        \"12\"\n");
}

TEST(CairoPdfParts, surviveAnImageThatComesFirstOnTheirPage) {
    const PdfReader pdf(onePage([](PdfDocument& page) {
        const PdfPart paragraph(page, PdfRole::paragraph);
        page.drawImage(pngImage(10, 10), firstLine);
        page.drawLine("danach", {100, 600, 200, 14}, plainText);
    }));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.images().size(), 1U);
    EXPECT_THAT(pdf.structure(), HasSubstr("  P (block)\n    \"danach\"\n"));
}

TEST(CairoPdfParts, linesOfWrappedTextAreReadWithASpaceBetweenThem) {
    const PdfReader pdf(onePage([](PdfDocument& page) {
        const PdfPart paragraph(page, PdfRole::paragraph);
        std::ignore =
            page.drawWrapped("Leistungen im November\nund Dezember", {100, 500, 80, 100}, plainText);
    }));
    EXPECT_THAT(pdf.structure(), HasSubstr("\"Leistungen im November und Dezember\""));
}

TEST(CairoPdfParts, aTableOfMoreThanFiveHundredRowsHasNoParts) {
    for (const std::size_t rows : {500U, 501U}) {
        const PdfReader pdf(onePage(
            [](PdfDocument& page) {
                const PdfPart paragraph(page, PdfRole::paragraph);
                page.drawLine("Text", firstLine, plainText);
            },
            {.creator = {}, .author = {}, .title = {}, .tableRows = rows}));
        EXPECT_EQ(pdf.information("Tagged"), rows <= 500 ? "yes" : "no");
        EXPECT_EQ(pdf.copiedText(), "Text");
    }
}

} // namespace
} // namespace brisklog::test
