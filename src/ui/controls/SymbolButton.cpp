#include "ui/controls/SymbolButton.h"

#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int radius = 6;

int symbolSizeOf(SymbolButton::Size size) {
    switch (size) {
    case SymbolButton::Size::closing:
        return 20;
    case SymbolButton::Size::timer:
        return 24;
    case SymbolButton::Size::normal:
        break;
    }
    return 18;
}

QColor foreground(const SymbolButtonLook& look, const Palette& palette) {
    if (!look.isEnabled)
        return palette.disabled();
    if (look.isDeleting)
        return palette.red;
    const bool isActive = look.isHovered || look.isPressed;
    return isActive && look.color == &Palette::secondary ? palette.text : palette.*look.color;
}

QColor background(const SymbolButtonLook& look, const Palette& palette) {
    const bool isActive = look.isHovered || look.isPressed;
    if (!look.isEnabled || !isActive)
        return Qt::transparent;
    if (look.isDeleting)
        return withOpacity(palette.redFill, 0.12);
    return withOpacity(palette.control, look.isPressed ? 0.9 : 0.7);
}

} // namespace

void paintSymbolButton(QPainter& painter, const QRect& area, const QString& symbol, int symbolSize,
                       const SymbolButtonLook& look, const Palette& palette) {
    fillRounded(painter, area, radius, background(look, palette));
    paintSymbol(painter, area, symbol, symbolSize, foreground(look, palette));
}

SymbolButton::SymbolButton(const QString& symbol, const QString& tooltip, Size size, Purpose purpose,
                           QWidget* parent)
    : Clickable(radius, parent), m_symbol(symbol), m_size(size), m_purpose(purpose) {
    setTooltip(tooltip);
}

void SymbolButton::setSymbol(const QString& symbol) {
    m_symbol = symbol;
    update();
}

void SymbolButton::setTooltip(const QString& tooltip) {
    setToolTip(tooltip);
    setAccessibleName(tooltip);
}

void SymbolButton::setColor(ColorRole color) {
    m_color = color;
    update();
}

QSize SymbolButton::sizeHint() const { return m_size == Size::timer ? QSize(36, 36) : QSize(28, 28); }

void SymbolButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const SymbolButtonLook look{.color = m_color,
                                .isDeleting = m_purpose == Purpose::deleting,
                                .isHovered = isHovered(),
                                .isPressed = isDown(),
                                .isEnabled = isEnabled()};
    paintSymbolButton(painter, rect(), m_symbol, symbolSizeOf(m_size), look, Palette::current());
}

} // namespace brisklog
