#pragma once

#include <QColor>
#include <string>

namespace brisklog::test {

/// Encoded images of one colour, as a user might choose for a logo.
[[nodiscard]] std::string pngImage(int width, int height, const QColor& colour = Qt::blue);
[[nodiscard]] std::string jpegImage(int width, int height, const QColor& colour = Qt::blue);

/// The JPEG with the note a camera makes when it is held sideways: to be turned by a quarter.
[[nodiscard]] std::string turnedByAQuarter(const std::string& jpeg);

/// A sound PNG of few bytes with 400 million pixels.
[[nodiscard]] std::string hugePng();

/// A sound JPEG with 36 million pixels.
[[nodiscard]] std::string hugeJpeg();

} // namespace brisklog::test
