#include "platform/pictures/QtImages.h"

#include "support/PdfPictures.h"
#include "support/SamplePictures.h"
#include "support/TemporaryHome.h"

#include <QColorSpace>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace brisklog::test {
namespace {

PixelSize unchanged(PixelSize size) { return size; }

PixelSize atMost40(PixelSize size) {
    const int longer = std::max(size.width, size.height);
    return longer <= 40 ? size : PixelSize{size.width * 40 / longer, size.height * 40 / longer};
}

class QtImagesTest : public testing::Test {
protected:
    [[nodiscard]] std::string complaint(const std::string& bytes) const {
        const auto decoded = images.decode(bytes, atMost40);
        return decoded.failed() ? decoded.error().description : "it is a picture";
    }

    static std::uint32_t pixel(const Bitmap& picture, int x, int y) {
        return picture.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) +
                                 static_cast<std::size_t>(x));
    }

    static int channel(std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 0xFF); }

    /// JPEG preserves colours only approximately.
    static bool isNearly(std::uint32_t one, std::uint32_t other) {
        for (const int shift : {0, 8, 16, 24})
            if (std::abs(channel(one, shift) - channel(other, shift)) > 8)
                return false;
        return true;
    }

    TemporaryHome home;
    QtImages images;
};

TEST_F(QtImagesTest, readsEveryFormatThePickerOffers) {
    for (const char* const format : {"PNG", "JPEG", "BMP", "TIFF"}) {
        const auto picture = images.decode(encoded(fourQuarters(16, 8), format, 100), unchanged);
        ASSERT_TRUE(picture.succeeded()) << format << ": " << picture.error().description;
        EXPECT_EQ(picture.value().size, (PixelSize{16, 8})) << format;
        EXPECT_TRUE(isNearly(pixel(picture.value(), 1, 1), 0xFFFF0000)) << format;
        EXPECT_TRUE(isNearly(pixel(picture.value(), 14, 1), 0xFF00FF00)) << format;
    }
    const auto gif = images.decode(smallGif(), unchanged);
    ASSERT_TRUE(gif.succeeded()) << gif.error().description;
    EXPECT_EQ(gif.value().pixels,
              (std::vector<std::uint32_t>{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, pixel(gif.value(), 1, 1)}));
    EXPECT_EQ(channel(pixel(gif.value(), 1, 1), 24), 0);
}

TEST_F(QtImagesTest, tellsTheFormatByTheContentNotByTheName) {
    writeFile(home.path() / "logo.png", encoded(fourQuarters(16, 8), "JPEG"));
    EXPECT_TRUE(images.read(home.path() / "logo.png", unchanged).succeeded());
}

TEST_F(QtImagesTest, keepsTransparencyThroughReadingAndWriting) {
    const auto picture = images.decode(encoded(fourQuarters(16, 8), "PNG"), unchanged);
    ASSERT_TRUE(picture.succeeded());
    EXPECT_EQ(pixel(picture.value(), 14, 7), 0x80FFFFFF);
    const auto written = images.encodePng(picture.value());
    ASSERT_TRUE(written.succeeded());
    EXPECT_TRUE(written.value().starts_with("\x89PNG"));
    EXPECT_EQ(images.decode(written.value(), unchanged).value(), picture.value());
}

TEST_F(QtImagesTest, writesAnOpaquePictureWithoutTransparency) {
    const Bitmap opaque{{2, 1}, {0xFF112233, 0xFF445566}};
    const auto written = images.encodePng(opaque);
    ASSERT_TRUE(written.succeeded());
    EXPECT_FALSE(QImage::fromData(QByteArray::fromStdString(written.value())).hasAlphaChannel());
    EXPECT_EQ(images.decode(written.value(), unchanged).value(), opaque);
}

TEST_F(QtImagesTest, anEmptyPictureCannotBeEncoded) { EXPECT_TRUE(images.encodePng({}).failed()); }

TEST_F(QtImagesTest, scalesToTheSizeTheRuleGives) {
    for (const char* const format : {"PNG", "JPEG"}) {
        const auto picture = images.decode(encoded(fourQuarters(400, 200), format, 100), atMost40);
        ASSERT_TRUE(picture.succeeded());
        EXPECT_EQ(picture.value().size, (PixelSize{40, 20})) << format;
        EXPECT_TRUE(isNearly(pixel(picture.value(), 3, 3), 0xFFFF0000)) << format;
        EXPECT_TRUE(isNearly(pixel(picture.value(), 36, 3), 0xFF00FF00)) << format;
        EXPECT_TRUE(isNearly(pixel(picture.value(), 3, 16), 0xFF0000FF)) << format;
    }
}

TEST_F(QtImagesTest, aPictureOfFewColoursIsScaledInAllColours) {
    for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8}) {
        QImage picture(200, 100, format);
        picture.setColorTable({0xFFC85AA0, 0xFF000000});
        picture.fill(0);
        const auto decoded = images.decode(encoded(picture, "PNG"), atMost40);
        ASSERT_TRUE(decoded.succeeded());
        EXPECT_EQ(decoded.value().size, (PixelSize{40, 20}));
        EXPECT_THAT(decoded.value().pixels, testing::Each(0xFFC85AA0));
    }
}

/// The letters name the colours of the top left, top right, bottom left and bottom right quarters.
TEST_F(QtImagesTest, turnsAPhotographUprightBeforeItAsksForItsSize) {
    const std::array<std::pair<int, const char*>, 8> orientations{{{1, "RGBW"},
                                                                   {2, "GRWB"},
                                                                   {3, "WBGR"},
                                                                   {4, "BWRG"},
                                                                   {5, "RBGW"},
                                                                   {6, "BRWG"},
                                                                   {7, "WGBR"},
                                                                   {8, "GWRB"}}};
    for (const auto& [orientation, corners] : orientations) {
        PixelSize seen;
        const auto picture = images.decode(
            turnedJpeg(fourQuarters(400, 200).convertToFormat(QImage::Format_RGB32), orientation),
            [&](PixelSize size) {
                seen = size;
                return atMost40(size);
            });
        ASSERT_TRUE(picture.succeeded()) << orientation;
        const bool isTurned = orientation > 4;
        EXPECT_EQ(seen, isTurned ? (PixelSize{200, 400}) : (PixelSize{400, 200})) << orientation;
        EXPECT_EQ(picture.value().size, isTurned ? (PixelSize{20, 40}) : (PixelSize{40, 20})) << orientation;
        const int right = picture.value().size.width - 4;
        const int bottom = picture.value().size.height - 4;
        std::string found;
        for (const auto& [x, y] : {std::pair{3, 3}, {right, 3}, {3, bottom}, {right, bottom}}) {
            const std::uint32_t colour = pixel(picture.value(), x, y);
            found += isNearly(colour, 0xFFFF0000)   ? 'R'
                     : isNearly(colour, 0xFF00FF00) ? 'G'
                     : isNearly(colour, 0xFF0000FF) ? 'B'
                                                    : 'W';
        }
        EXPECT_EQ(found, corners) << orientation;
    }
}

TEST_F(QtImagesTest, bringsTheWideColoursOfCamerasIntoThoseOfAScreen) {
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(QColor(0, 200, 0));
    picture.setColorSpace(QColorSpace::DisplayP3);
    const auto decoded = images.decode(encoded(picture, "PNG"), unchanged);
    ASSERT_TRUE(decoded.succeeded());
    EXPECT_GT(channel(pixel(decoded.value(), 0, 0), 8), 200);
    picture.setColorSpace(QColorSpace(QPointF(0.3127, 0.329), QPointF(0.64, 0.33), QPointF(0.3, 0.6),
                                      QPointF(0.15, 0.06), QColorSpace::TransferFunction::Gamma, 2.2F));
    EXPECT_EQ(pixel(images.decode(encoded(picture, "PNG"), unchanged).value(), 0, 0), 0xFF00C800);
    picture.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(pixel(images.decode(encoded(picture, "PNG"), unchanged).value(), 0, 0), 0xFF00C800);
}

TEST_F(QtImagesTest, whatIsNoImageIsAnError) {
    EXPECT_EQ(complaint("Das ist ein Text."), "not an image");
    EXPECT_EQ(complaint(""), "not an image");
    EXPECT_EQ(complaint("<svg xmlns='http://www.w3.org/2000/svg' width='1' height='1'/>"), "not an image");
    EXPECT_EQ(complaint("%PDF-1.4 and so on and on"), "not an image");
}

TEST_F(QtImagesTest, whatIsCutShortIsAnErrorInEveryFormat) {
    for (const char* const format : {"PNG", "JPEG", "BMP", "TIFF"}) {
        const std::string whole = encoded(fourQuarters(64, 64), format);
        EXPECT_EQ(complaint(whole), "it is a picture") << format;
        for (const std::size_t percent : {5U, 30U, 60U, 90U})
            EXPECT_NE(complaint(whole.substr(0, whole.size() * percent / 100)), "it is a picture")
                << format << ' ' << percent;
    }
    EXPECT_NE(complaint(smallGif().substr(0, smallGif().size() - 5)), "it is a picture");
}

TEST_F(QtImagesTest, whatWouldFillTheMemoryIsAnError) {
    EXPECT_EQ(complaint(hugePng()), "too large an image");
    std::string gif = smallGif();
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(complaint(gif), "too large an image");
    const auto unshrunk = images.decode(hugeJpeg(), unchanged);
    ASSERT_TRUE(unshrunk.failed());
    EXPECT_EQ(unshrunk.error().description, "too large an image");
}

TEST_F(QtImagesTest, aPngThatClaimsMoreThanThereIsIsAnError) {
    const std::string whole = encoded(fourQuarters(16, 8), "PNG");
    for (const char* const part : {"IDAT", "IEND"}) {
        std::string png = whole;
        png.insert(png.find(part) - 4, "\x41\x54\x01\x25tEXtcomment");
        EXPECT_EQ(complaint(png), "the image is cut short") << part;
    }
}

TEST_F(QtImagesTest, aPngOfMorePartsThanAnyProgramWritesIsAnError) {
    const std::string whole = encoded(fourQuarters(16, 8), "PNG");
    const std::string emptyPart("\0\0\0\0teXt\xD6\x2C\xB8\x2B", 12);
    std::string parts;
    for (int count = 0; count < 1 << 20; ++count)
        parts += emptyPart;
    EXPECT_EQ(complaint(std::string(whole).insert(whole.find("IDAT") - 4, parts)), "the image is cut short");
}

TEST_F(QtImagesTest, aPhotographInSeveralGoesIsAPictureButOneInHundredsIsNot) {
    EXPECT_GT(QByteArray::fromStdString(progressiveJpeg(0)).count("\xFF\xDA"), 5);
    EXPECT_EQ(complaint(progressiveJpeg(0)), "it is a picture");
    EXPECT_EQ(complaint(progressiveJpeg(200)), "an image without end");
}

TEST_F(QtImagesTest, aPhotographInHundredsOfGoesCannotPretendToComeInOne) {
    using namespace std::string_literals;
    const std::string oneGo = "\xFF\xC0\0\x0B\x08\0\x40\0\x40\x01\x01\x11\0"s
                              "\xFF\xDA\0\x08\x01\x01\0\0\x3F\0"s;
    // A reader that takes the two bytes after the marker for a length ends up inside the comment, where it
    // finds a JPEG with a single scan.
    const std::string markWithoutLength = "\xFF\xD0\0\x06"s;
    const std::string remark = "\xFF\xFE\0"s + static_cast<char>(oneGo.size() + 2) + oneGo;
    EXPECT_EQ(complaint(progressiveJpeg(0).insert(2, markWithoutLength + remark)), "it is a picture");
    EXPECT_EQ(complaint(progressiveJpeg(200).insert(2, markWithoutLength + remark)), "an image without end");
}

TEST_F(QtImagesTest, aLargePhotographIsShrunkWhileItIsRead) {
    const auto picture = images.decode(hugeJpeg(), atMost40);
    ASSERT_TRUE(picture.succeeded()) << picture.error().description;
    EXPECT_EQ(picture.value().size, (PixelSize{40, 40}));
}

TEST_F(QtImagesTest, filesThatAreNoneAreAnError) {
    const auto complaintAbout = [&](const char* name) {
        const auto picture = images.read(home.path() / name, unchanged);
        return picture.failed() ? picture.error().description : "it is a picture";
    };
    ASSERT_EQ(::mkfifo((home.path() / "pipe.png").c_str(), 0600), 0);
    std::filesystem::create_directory(home.path() / "folder.png");
    std::filesystem::create_symlink("circle.png", home.path() / "circle.png");
    EXPECT_EQ(complaintAbout("pipe.png"), (home.path() / "pipe.png").string() + ": not a regular file");
    EXPECT_EQ(complaintAbout("folder.png"), (home.path() / "folder.png").string() + ": not a regular file");
    EXPECT_EQ(complaintAbout("none.png"),
              (home.path() / "none.png").string() + ": No such file or directory");
    EXPECT_EQ(complaintAbout("circle.png"),
              (home.path() / "circle.png").string() + ": Too many levels of symbolic links");
}

TEST_F(QtImagesTest, aNameThatIsNoUtf8IsAFileLikeAnyOther) {
    writeFile(home.path() / "Gr\xFC\xDF e.png", encoded(fourQuarters(4, 4), "PNG"));
    EXPECT_TRUE(images.read(home.path() / "Gr\xFC\xDF e.png", unchanged).succeeded());
}

} // namespace
} // namespace brisklog::test
