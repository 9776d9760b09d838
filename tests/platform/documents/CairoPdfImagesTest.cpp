#include "platform/documents/CairoPdfFacility.h"

#include "support/PdfPictures.h"
#include "support/PdfPlaces.h"
#include "support/SamplePictures.h"

#include <QColorSpace>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

constexpr PageRectangle imagePlace{200, 600, 70, 70};

/// A document of one page with nothing but the image.
std::string withImage(std::string_view encoded) {
    CairoPdfFacility facility;
    const auto document = facility.begin({});
    document->beginPage();
    document->drawImage(encoded, imagePlace);
    return document->finish();
}

struct Drawn {
    double x;
    /// Measured from the rectangle's top.
    double top;
    double width;
    double height;
};

void expectDrawn(std::string_view encoded, const Drawn& expected) {
    const PdfReader pdf(withImage(encoded));
    EXPECT_EQ(pdf.complaints(), "");
    const auto ink = pdf.picture(1).inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, expected.x, placeTolerance);
    EXPECT_NEAR(ink->top, a4.height - 670 + expected.top, placeTolerance);
    EXPECT_NEAR(ink->right - ink->left, expected.width, placeTolerance);
    EXPECT_NEAR(ink->bottom - ink->top, expected.height, placeTolerance);
}

void expectSkipped(std::string_view encoded) {
    const PdfReader pdf(withImage(encoded));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_TRUE(pdf.images().empty());
    EXPECT_EQ(pdf.picture(1).inkWithin(wholePage), std::nullopt);
}

TEST(CairoPdfImages, aLargeImageShrinksToFitAndKeepsItsShape) {
    expectDrawn(pngImage(140, 70), {200, 0, 70, 35});
    expectDrawn(pngImage(70, 140), {217.5, 0, 35, 70});
    expectDrawn(pngImage(700, 700), {200, 0, 70, 70});
}

TEST(CairoPdfImages, aSmallImageIsNeverEnlarged) { expectDrawn(pngImage(35, 35), {217.5, 0, 35, 35}); }

TEST(CairoPdfImages, otherFormatsAreDrawnToo) {
    expectDrawn(jpegImage(140, 70), {200, 0, 70, 35});
    const std::string gif("GIF89a\x01\0\x01\0\x80\0\0\0\0\0\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02"
                          "D\x01\0;",
                          35);
    expectDrawn(gif, {234.5, 0, 1, 1});
}

TEST(CairoPdfImages, aJpegGoesInByteForByte) {
    const std::string jpeg = jpegImage(140, 70);
    const std::string bytes = withImage(jpeg);
    EXPECT_THAT(bytes, testing::HasSubstr(jpeg));
    const auto images = PdfReader(bytes).images();
    ASSERT_EQ(images.size(), 1U);
    EXPECT_EQ(images[0].encoding, "jpeg");
    EXPECT_EQ(images[0].width, 140);
}

TEST(CairoPdfImages, aJpegWithFillBytesIsDrawnAsItIsToBeSeen) {
    const std::string plain = jpegImage(140, 70, QColor(255, 200, 0));
    for (const std::size_t count : {1, 2, 3}) {
        std::string filled = plain;
        filled.insert(filled.find("\xFF\xC0"), count, '\xFF');
        const PdfReader pdf(withImage(filled));
        EXPECT_EQ(pdf.complaints(), "");
        EXPECT_TRUE(pdf.picture(1).pixels == PdfReader(withImage(plain)).picture(1).pixels) << count;
    }
}

TEST(CairoPdfImages, aPngKeepsEveryPixelAndItsTransparency) {
    const auto images = PdfReader(withImage(pngImage(140, 70, QColor(0, 0, 255, 128)))).images();
    ASSERT_EQ(images.size(), 2U);
    EXPECT_EQ(images[0].kind, "image");
    EXPECT_EQ(images[0].encoding, "image");
    EXPECT_EQ(images[0].width, 140);
    EXPECT_EQ(images[0].height, 70);
    EXPECT_EQ(images[1].kind, "smask");
    EXPECT_EQ(images[1].width, 140);
}

TEST(CairoPdfImages, wideColoursAreDrawnAsThoseOfAScreen) {
    QImage wide(70, 70, QImage::Format_RGB32);
    wide.fill(QColor(60, 200, 60));
    wide.setColorSpace(QColorSpace::DisplayP3);
    const std::string onScreen = encoded(wide.convertedToColorSpace(QColorSpace::SRgb), "PNG");
    const auto pixels = [](const std::string& png) { return PdfReader(withImage(png)).picture(1).pixels; };
    EXPECT_TRUE(pixels(encoded(wide, "PNG")) == pixels(onScreen));
    EXPECT_FALSE(pixels(onScreen) == pixels(pngImage(70, 70, QColor(60, 200, 60))));
}

TEST(CairoPdfImages, aPhotographTakenSidewaysStandsUpright) {
    expectDrawn(withExifRotation(jpegImage(140, 70)), {217.5, 0, 35, 70});
}

TEST(CairoPdfImages, whatIsNoImageIsSkipped) {
    expectSkipped("");
    expectSkipped("Das ist ein Text, der logo.png heißt.");
    expectSkipped(std::string(5000, '\0'));
    expectSkipped(
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"><rect width="9" height="9"/></svg>)");
    expectSkipped("\xFF\xD8\xFF");
    expectSkipped("\x89PNG\r\n\x1A\n");
}

TEST(CairoPdfImages, anImageCutShortIsSkipped) {
    for (const std::string& whole : {jpegImage(300, 300), pngImage(300, 300)})
        for (const std::size_t length : {whole.size() / 3, whole.size() / 2, whole.size() - 20})
            expectSkipped(whole.substr(0, length));
    for (const char* const format : {"BMP", "TIFF"})
        expectSkipped(encoded(fourQuarters(64, 64), format).substr(0, 5000));
    expectSkipped(smallGif().substr(0, smallGif().size() - 5));
}

TEST(CairoPdfImages, aPngOfMorePartsThanAnyProgramWritesIsSkipped) {
    const std::string emptyPart("\0\0\0\0teXt\xD6\x2C\xB8\x2B", 12);
    std::string parts;
    for (int count = 0; count < 1 << 20; ++count)
        parts += emptyPart;
    std::string png = pngImage(40, 40);
    expectSkipped(png.insert(png.find("IDAT") - 4, parts));
}

TEST(CairoPdfImages, anImageOfMoreThanThirtyTwoMillionPixelsIsSkipped) {
    expectSkipped(hugePng());
    expectSkipped(hugeJpeg());
}

TEST(CairoPdfImages, aPhotographInSeveralGoesIsDrawnButOneInHundredsIsSkipped) {
    expectDrawn(progressiveJpeg(0), {203, 0, 64, 64});
    expectSkipped(progressiveJpeg(200));
}

TEST(CairoPdfImages, aJpegThatLiesAboutItsSizeIsSkipped) {
    std::string jpeg = jpegImage(140, 70);
    const std::size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    jpeg.replace(frame + 5, 4, "\xFF\xFF\xFF\xFF");
    expectSkipped(jpeg);
}

} // namespace
} // namespace brisklog::test
