#include "support/SamplePictures.h"

#include "support/PdfPictures.h"

#include <QBuffer>
#include <QImageWriter>
#include <gtest/gtest.h>

namespace brisklog::test {

QImage fourQuarters(int width, int height) {
    QImage picture(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool isLeft = x < width / 2;
            const bool isTop = y < height / 2;
            picture.setPixel(x, y,
                             isTop ? (isLeft ? 0xFFFF0000 : 0xFF00FF00) : (isLeft ? 0xFF0000FF : 0x80FFFFFF));
        }
    return picture;
}

std::string encoded(const QImage& picture, const char* format, int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(picture.save(&buffer, format, quality)) << format;
    return buffer.data().toStdString();
}

std::string turnedJpeg(const QImage& picture, int orientation) {
    constexpr std::size_t fromNoteToNumber = 24;
    constexpr char quarter = 6;
    std::string bytes = withExifRotation(encoded(picture, "JPEG", 100));
    char& number = bytes[bytes.find("Exif") + fromNoteToNumber];
    EXPECT_EQ(number, quarter);
    number = static_cast<char>(orientation);
    return bytes;
}

std::string progressiveJpeg(int more) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    EXPECT_TRUE(writer.write(fourQuarters(64, 64)));
    const std::string jpeg = buffer.data().toStdString();
    const std::size_t lastScan = jpeg.rfind("\xFF\xDA");
    const std::size_t end = jpeg.size() - 2;
    std::string bytes = jpeg.substr(0, end);
    for (int count = 0; count < more; ++count)
        bytes += jpeg.substr(lastScan, end - lastScan);
    return bytes + jpeg.substr(end);
}

std::string smallGif() {
    using namespace std::string_literals;
    const std::string screen = "\x02\0\x02\0\xF1\0\0"s;
    const std::string colours = "\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF"s;
    const std::string lastIsTransparent = "\x21\xF9\x04\x01\0\0\x03\0"s;
    const std::string picture = "\x2C\0\0\0\0\x02\0\x02\0\0"s;
    const std::string pixels = "\x02\x03\x44\x34\x05\0"s;
    return "GIF89a" + screen + colours + lastIsTransparent + picture + pixels + ";";
}

} // namespace brisklog::test
