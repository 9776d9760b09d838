#pragma once

#include <QImage>
#include <string>

namespace brisklog::test {

/// A picture in which no two corners look alike: red, green, blue and half-transparent white quarters, from
/// the top left on.
[[nodiscard]] QImage fourQuarters(int width, int height);

/// The picture as a file of that format ("PNG", "JPEG", "BMP", "TIFF"); fails the test when it cannot be
/// encoded.
[[nodiscard]] std::string encoded(const QImage& picture, const char* format, int quality = -1);

/// A JPEG file with that Exif orientation (1 to 8).
[[nodiscard]] std::string turnedJpeg(const QImage& picture, int orientation);

/// A valid progressive JPEG file, its last scan repeated that many times more.
[[nodiscard]] std::string progressiveJpeg(int more);

/// A GIF file of 2 × 2 pixels: red, green, blue, transparent.
[[nodiscard]] std::string smallGif();

} // namespace brisklog::test
