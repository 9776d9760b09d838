// Image files as broken memory cards, interrupted downloads and malicious people produce them.

#include "platform/pictures/QtImages.h"

#include "support/PdfPictures.h"
#include "support/SamplePictures.h"

#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace brisklog::test {
namespace {

constexpr int side = 40;

PixelSize atMostSide(PixelSize size) { return {std::min(size.width, side), std::min(size.height, side)}; }

/// This process's peak memory, in megabytes.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return 0;
}

class MutatedImagesTest : public testing::TestWithParam<const char*> {
protected:
    [[nodiscard]] static std::string original() {
        const std::string format = GetParam();
        if (format == "GIF")
            return smallGif();
        if (format == "turned JPEG")
            return turnedJpeg(fourQuarters(60, 30).convertToFormat(QImage::Format_RGB32), 5);
        if (format == "palette PNG")
            return encoded(fourQuarters(60, 30).convertToFormat(QImage::Format_Indexed8), "PNG");
        return encoded(fourQuarters(60, 30), GetParam());
    }

    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    }

    char anyByte() {
        // Decoders go wrong at boundary values and signs.
        constexpr std::array telling{'\x00', '\x01', '\x7F', '\x80', '\xFF'};
        return below(2) == 0 ? telling[below(telling.size())] : static_cast<char>(below(256));
    }

    /// Half of the time near the beginning, where the dimensions are.
    std::size_t anyPlace(const std::string& bytes) {
        return below(
            std::max<std::size_t>(1, below(2) == 0 ? std::min<std::size_t>(bytes.size(), 64) : bytes.size()));
    }

    std::string mutated(std::string bytes) {
        for (std::size_t changes = 1 + below(6); changes > 0 && !bytes.empty(); --changes) {
            const std::size_t place = anyPlace(bytes);
            switch (below(5)) {
            case 0:
                bytes.erase(place, 1 + below(16));
                break;
            case 1:
                bytes.insert(place, bytes.substr(below(bytes.size()), below(32)));
                break;
            case 2:
                bytes.replace(place, 4, std::string(4, anyByte()));
                break;
            default:
                bytes[place] = anyByte();
            }
        }
        return bytes;
    }

    std::mt19937 random{20261115};
    QtImages images;
};

TEST_P(MutatedImagesTest, areEitherAPictureOrAnErrorAndFillNoMemory) {
    constexpr int variants = 1500;
    const std::string bytes = original();
    ASSERT_TRUE(images.decode(bytes, atMostSide).succeeded());
    int pictures = 0;
    for (int variant = 0; variant < variants; ++variant) {
        const auto decoded = images.decode(mutated(bytes), atMostSide);
        if (decoded.failed()) {
            EXPECT_FALSE(decoded.error().description.empty());
            continue;
        }
        ++pictures;
        const Bitmap& picture = decoded.value();
        EXPECT_LE(picture.size.width, side);
        EXPECT_LE(picture.size.height, side);
        EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(picture.size.width * picture.size.height));
    }
    EXPECT_GT(pictures, 0) << "the changes must not all be fatal";
    EXPECT_LT(pictures, variants);
    EXPECT_LT(peakMemory(), 600);
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, MutatedImagesTest,
                         testing::Values("PNG", "palette PNG", "JPEG", "turned JPEG", "BMP", "TIFF", "GIF"),
                         [](const auto& format) {
                             std::string name = format.param;
                             std::erase(name, ' ');
                             return name;
                         });

} // namespace
} // namespace brisklog::test
