#pragma once

#include <QColor>
#include <string>

namespace brisklog::test {

/// Encoded images of one colour, as a user might choose for a logo.
[[nodiscard]] std::string pngImage(int width, int height, const QColor& colour = Qt::blue);
[[nodiscard]] std::string jpegImage(int width, int height, const QColor& colour = Qt::blue);

/// The JPEG with the Exif note of a camera held sideways: to be rotated by 90°.
[[nodiscard]] std::string withExifRotation(const std::string& jpeg);

/// A valid PNG of a few bytes with 400 million pixels.
[[nodiscard]] std::string hugePng();

/// A valid JPEG with 36 million pixels.
[[nodiscard]] std::string hugeJpeg();

} // namespace brisklog::test
