#include "support/screen/ScreenTest.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

QImage iconOn(const QColor& panel, int size) {
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(panel);
    QPainter painter(&image);
    QSvgRenderer(u":/symbols/brisklog-status.svg"_s).render(&painter);
    return image;
}

double linear(double part) { return part < 0.04 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// As the accessibility guidelines count it; symbols need 3.
double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

/// How much of the icon's square stands out from the panel.
double legiblePart(const QColor& panel, int size) {
    const QImage image = iconOn(panel, size);
    int legible = 0;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            legible += contrast(image.pixelColor(x, y), panel) >= 3 ? 1 : 0;
    return double(legible) / (size * size);
}

using StatusIconTest = ScreenTest;

/// The panel's colour cannot be asked, and few panels would colour the icon.
TEST_F(StatusIconTest, standsOutFromAPanelOfAnyBrightness) {
    for (const int size : {16, 22, 24, 44, 48})
        for (int brightness = 0; brightness < 256; brightness += 5)
            EXPECT_GE(legiblePart(QColor(brightness, brightness, brightness), size), 0.12)
                << size << " at " << brightness;
}

} // namespace
} // namespace brisklog::test
