#include "support/PdfPictures.h"

#include <QBuffer>
#include <QImage>
#include <cstdint>
#include <string_view>

namespace brisklog::test {
namespace {

std::string encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data().toStdString();
}

std::string encoded(int width, int height, const QColor& colour, const char* format) {
    QImage image(width, height, colour.alpha() < 255 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    image.fill(colour);
    return encoded(image, format);
}

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

/// The checksum that ends every chunk of a PNG file.
std::uint32_t checksum(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

std::string pngPart(const std::string& name, const std::string& content) {
    return bigEndian(static_cast<std::uint32_t>(content.size())) + name + content +
           bigEndian(checksum(name + content));
}

} // namespace

std::string pngImage(int width, int height, const QColor& colour) {
    return encoded(width, height, colour, "PNG");
}

std::string jpegImage(int width, int height, const QColor& colour) {
    return encoded(width, height, colour, "JPG");
}

std::string withExifRotation(const std::string& jpeg) {
    using namespace std::string_literals;
    const std::string note = "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0"s;
    const auto length = static_cast<char>(note.size() + 2);
    return jpeg.substr(0, 2) + "\xFF\xE1"s + '\0' + length + note + jpeg.substr(2);
}

std::string hugeJpeg() {
    constexpr int side = 6000;
    QImage image(side, side, QImage::Format_Grayscale8);
    image.fill(Qt::black);
    return encoded(image, "JPG");
}

std::string hugePng() {
    constexpr int side = 20000;
    constexpr int bytesPerRow = 1 + side / 8; // the row's filter byte, then one bit per pixel
    const QByteArray rows(qsizetype{side} * bytesPerRow, '\0');
    constexpr int lengthPrefix = 4;
    const std::string data = qCompress(rows).mid(lengthPrefix).toStdString();
    const std::string header = bigEndian(side) + bigEndian(side) + std::string("\x01\0\0\0\0", 5);
    return "\x89PNG\r\n\x1A\n" + pngPart("IHDR", header) + pngPart("IDAT", data) + pngPart("IEND", "");
}

} // namespace brisklog::test
