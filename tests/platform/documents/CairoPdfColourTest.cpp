#include "platform/documents/CairoPdfFacility.h"

#include "support/PdfReader.h"

#include <fontconfig/fontconfig.h>
#include <gmock/gmock.h>
#include <tuple>

namespace brisklog::test {
namespace {

/// The only character of our colour font: a yellow square inside a red one as high as the text.
const std::string colouredSquare = "\U0010F0F0";
constexpr TextStyle ordinary{.pointSize = 10};

/// Documents on a machine that has a colour font, as most have for emoji.
class CairoPdfColour : public testing::Test {
protected:
    void SetUp() override {
        const auto* const file = reinterpret_cast<const FcChar8*>(BRISKLOG_COLOUR_FONT);
        EXPECT_TRUE(FcConfigAppFontAddFile(nullptr, file));
    }

    void TearDown() override { FcConfigAppFontClear(nullptr); }

    static std::string documentOf(const std::vector<std::string>& lines, int pages = 1) {
        CairoPdfFacility facility;
        const auto document = facility.begin({});
        for (int page = 0; page < pages; ++page) {
            document->beginPage();
            double y = 780;
            for (const std::string& line : lines)
                document->drawLine(line, {50, y -= 14, 495, 14}, ordinary);
        }
        return document->finish();
    }
};

TEST_F(CairoPdfColour, aPictureIsDrawnInItsPlace) {
    const PdfReader pdf(documentOf({colouredSquare}));
    const auto ink = pdf.picture(1, 288).inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, 50, 0.5);
    EXPECT_NEAR(ink->right, 60, 0.5);
    EXPECT_NEAR(ink->bottom - ink->top, 10, 0.5);
    const PdfPicture page = pdf.picture(1, 288);
    const auto at = [&](double x, double y) {
        const int pixel = static_cast<int>(y * 4) * page.width + static_cast<int>(x * 4);
        return page.pixels.substr(static_cast<std::size_t>(pixel) * 3, 3);
    };
    const double middle = (ink->top + ink->bottom) / 2;
    EXPECT_EQ(at(51, middle), (std::string{'\xFF', '\0', '\0'}));
    EXPECT_EQ(at(55, middle), (std::string{'\xFF', '\xFF', '\0'}));
}

TEST_F(CairoPdfColour, picturesCanBeCopiedAsTheCharactersTheyStandFor) {
    const std::string text = "Start " + colouredSquare + colouredSquare + " Ende";
    const PdfReader pdf(documentOf({text, "danach"}));
    EXPECT_EQ(pdf.copiedText(), withoutBlanks(text + "danach"));
}

TEST_F(CairoPdfColour, wrappedPicturesAreDrawnOnEveryLine) {
    CairoPdfFacility facility;
    const auto document = facility.begin({});
    document->beginPage();
    const std::string text = colouredSquare + " " + colouredSquare + " " + colouredSquare;
    std::ignore = document->drawWrapped(text, {50, 700, 11, 80}, ordinary);
    const PdfReader pdf(document->finish());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.copiedText(), withoutBlanks(text));
    const auto ink = pdf.picture(1, 288).inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_GT(ink->bottom - ink->top, 30);
}

TEST_F(CairoPdfColour, manyOfThemOnManyPagesMakeASoundDocument) {
    const std::vector<std::string> lines(20, colouredSquare + " " + colouredSquare);
    const std::string onePage = documentOf(lines);
    const std::string tenPages = documentOf(lines, 10);
    EXPECT_EQ(PdfReader(onePage).complaints(), "");
    EXPECT_EQ(PdfReader(tenPages).complaints(), "");
    // Later pages reuse the pictures of the first.
    EXPECT_EQ(PdfReader(tenPages).pageCount(), 10);
    EXPECT_LT(tenPages.size(), onePage.size() * 2);
}

TEST_F(CairoPdfColour, aCharacterNoFontHasIsABoxBesideAPicture) {
    const std::string text = colouredSquare + "\U0010F0F1" + colouredSquare;
    const PdfReader pdf(documentOf({text}));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.copiedText(), text);
}

} // namespace
} // namespace brisklog::test
