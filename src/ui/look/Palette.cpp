#include "ui/look/Palette.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>
#include <QWidget>
#include <cmath>

namespace brisklog {
namespace {

/// Global to the program, like the toolkit's own palette.
ColorScheme currentScheme = ColorScheme::light;

Palette lightPalette() {
    return {
        .scheme = ColorScheme::light,
        .ground = QColor(0xF4, 0xF4, 0xF1),
        .card = QColor(0xFF, 0xFF, 0xFF),
        .field = QColor(0xFF, 0xFF, 0xFF),
        .text = QColor(0x19, 0x1D, 0x27),
        .secondary = QColor(0x55, 0x5B, 0x6A),
        .placeholder = QColor(0x6E, 0x75, 0x86),
        .control = QColor(0xD6, 0xDC, 0xE8),
        .controlUnderWhiteText = QColor(0x2B, 0x31, 0x3E),
        .line = QColor(0xE1, 0xE2, 0xE1),
        .rule = QColor(0x8B, 0x92, 0xA1),
        .blue = QColor(0x23, 0x4E, 0xBE),
        .blueFill = QColor(0x2A, 0x57, 0xCE),
        .green = QColor(0x13, 0x6B, 0x3E),
        .greenFill = QColor(0x1C, 0x83, 0x50),
        .orange = QColor(0x9A, 0x4D, 0x00),
        .orangeFill = QColor(0xCC, 0x6B, 0x00),
        .red = QColor(0xB8, 0x1F, 0x34),
        .redFill = QColor(0xC3, 0x2A, 0x3F),
        .primaryHovered = QColor(0x20, 0x49, 0xB8),
        .primaryPressed = QColor(0x1A, 0x3C, 0x98),
        .tooltip = QColor(0x25, 0x2A, 0x36),
        .tooltipText = QColor(0xFF, 0xFF, 0xFF),
        .chartBar = QColor(0x2A, 0x57, 0xCE),
        .white = QColor(0xFF, 0xFF, 0xFF),
    };
}

Palette darkPalette() {
    return {
        .scheme = ColorScheme::dark,
        .ground = QColor(0x14, 0x17, 0x1D),
        .card = QColor(0x1D, 0x21, 0x29),
        .field = QColor(0x17, 0x1A, 0x21),
        .text = QColor(0xEC, 0xEB, 0xE7),
        .secondary = QColor(0xA6, 0xAC, 0xBA),
        .placeholder = QColor(0x86, 0x8C, 0x9B),
        .control = QColor(0x39, 0x40, 0x4F),
        .controlUnderWhiteText = QColor(0x39, 0x40, 0x4F),
        .line = QColor(0x2B, 0x30, 0x3A),
        .rule = QColor(0x6E, 0x76, 0x88),
        .blue = QColor(0x92, 0xB2, 0xFF),
        .blueFill = QColor(0x3A, 0x62, 0xD9),
        .green = QColor(0x5A, 0xCD, 0x94),
        .greenFill = QColor(0x3F, 0xB5, 0x7A),
        .orange = QColor(0xF1, 0xA7, 0x4B),
        .orangeFill = QColor(0xF1, 0xA7, 0x4B),
        .red = QColor(0xFF, 0x8F, 0x8F),
        .redFill = QColor(0xC8, 0x38, 0x4B),
        .primaryHovered = QColor(0x44, 0x6A, 0xDE),
        .primaryPressed = QColor(0x31, 0x57, 0xC4),
        .tooltip = QColor(0xE6, 0xE5, 0xE0),
        .tooltipText = QColor(0x19, 0x1D, 0x27),
        .chartBar = QColor(0x5E, 0x86, 0xF2),
        .white = QColor(0xFF, 0xFF, 0xFF),
    };
}

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

const Palette& Palette::of(ColorScheme scheme) {
    static const Palette light = lightPalette();
    static const Palette dark = darkPalette();
    return scheme == ColorScheme::dark ? dark : light;
}

QColor Palette::disabled() const { return withOpacity(secondary, 0.5); }

const Palette& Palette::current() { return of(currentScheme); }

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return color;
}

QColor blendedOver(const QColor& color, const QColor& ground) {
    const float share = color.alphaF();
    const auto mixed = [share](float above, float below) { return above * share + below * (1 - share); };
    return QColor::fromRgbF(mixed(color.redF(), ground.redF()), mixed(color.greenF(), ground.greenF()),
                            mixed(color.blueF(), ground.blueF()));
}

double contrast(const QColor& first, const QColor& second) {
    const double one = luminance(first) + 0.05;
    const double other = luminance(second) + 0.05;
    return one > other ? one / other : other / one;
}

QPalette toolkitPalette(const Palette& palette) {
    QPalette result(palette.text, palette.card, palette.card, palette.rule, palette.line, palette.text,
                    palette.white, palette.field, palette.ground);
    result.setColor(QPalette::PlaceholderText, palette.placeholder);
    result.setColor(QPalette::ButtonText, palette.text);
    result.setColor(QPalette::Highlight, palette.blueFill);
    result.setColor(QPalette::HighlightedText, palette.white);
    result.setColor(QPalette::Link, palette.blue);
    result.setColor(QPalette::LinkVisited, palette.blue);
    result.setColor(QPalette::ToolTipBase, palette.tooltip);
    result.setColor(QPalette::ToolTipText, palette.tooltipText);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        result.setColor(QPalette::Disabled, role, palette.disabled());
    return result;
}

void clearGround(QWidget& widget) {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    widget.setPalette(palette);
}

void applyColorScheme(ColorScheme scheme) {
    currentScheme = scheme;
    const QPalette palette = toolkitPalette(Palette::current());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    // The toolkit would notify the widgets only in the next turn of the event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
}

} // namespace brisklog
