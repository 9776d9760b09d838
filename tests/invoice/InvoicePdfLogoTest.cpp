#include "platform/pictures/QtImages.h"

#include "invoice/SampleInvoice.h"
#include "support/PdfPictures.h"
#include "support/PdfPlaces.h"
#include "support/SamplePictures.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr double logoTop = 50;
constexpr double middleColumnCentre = 50 + 495 * (0.33 + 0.34 / 2);

SampleInvoice withLogo(const std::string& logo) {
    SampleInvoice invoice;
    invoice.sender.logoData = logo;
    // Otherwise the logo would not be alone in the middle column.
    invoice.sender.email = "";
    return invoice;
}

/// What is drawn between the sender's column and the right column.
std::optional<PdfBox> logoOn(const PdfReader& pdf) { return pdf.picture(1).inkWithin({1, 215, 0, 380, 200}); }

void expectLogo(const std::string& logo, double width, double height) {
    const auto box = logoOn(PdfReader(withLogo(logo).document()));
    ASSERT_TRUE(box);
    EXPECT_NEAR(box->top, logoTop, placeTolerance);
    EXPECT_NEAR((box->left + box->right) / 2, middleColumnCentre, placeTolerance);
    EXPECT_NEAR(box->right - box->left, width, placeTolerance);
    EXPECT_NEAR(box->bottom - box->top, height, placeTolerance);
}

TEST(InvoicePdfLogo, shrinksToSeventyPointsAndKeepsItsShape) {
    expectLogo(pngImage(140, 70), 70, 35);
    expectLogo(pngImage(70, 140), 35, 70);
    expectLogo(jpegImage(700, 700), 70, 70);
}

TEST(InvoicePdfLogo, isNeverEnlarged) {
    expectLogo(pngImage(35, 35), 35, 35);
    expectLogo(pngImage(70, 1), 70, 1);
}

void expectLeftOut(const std::string& logo) {
    const PdfReader with(withLogo(logo).document());
    EXPECT_EQ(with.complaints(), "");
    EXPECT_EQ(logoOn(with), std::nullopt);
    EXPECT_TRUE(with.images().empty());
    SampleInvoice without = withLogo("");
    without.sender.logoData = std::nullopt;
    EXPECT_EQ(with.copiedText(), PdfReader(without.document()).copiedText());
}

TEST(InvoicePdfLogo, thatDoesNotDecodeIsLeftOutAndTheRestIsDrawnAsWithoutOne) { expectLeftOut("kein Bild"); }

/// Decoding it would take minutes.
TEST(InvoicePdfLogo, withHundredsOfScansIsLeftOutAsThePickerRefusesIt) {
    const std::string logo = progressiveJpeg(500);
    const auto picked = QtImages().decode(logo, [](PixelSize size) { return size; });
    ASSERT_TRUE(picked.failed());
    EXPECT_EQ(picked.error().description, "an image without end");
    expectLeftOut(logo);
    expectLogo(progressiveJpeg(0), 64, 64);
}

TEST(InvoicePdfLogo, movesNoText) {
    const PdfReader with(withLogo(pngImage(140, 140)).document());
    SampleInvoice plain = withLogo("");
    plain.sender.logoData = std::nullopt;
    const PdfReader without(plain.document());
    ASSERT_EQ(with.words().size(), without.words().size());
    for (std::size_t i = 0; i < with.words().size(); ++i) {
        EXPECT_EQ(with.words()[i].text, without.words()[i].text);
        EXPECT_DOUBLE_EQ(with.words()[i].box.top, without.words()[i].box.top);
    }
}

} // namespace
} // namespace brisklog::test
