#include "ui/controls/Button.h"

#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 6;
constexpr int symbolSize = 15;
constexpr int symbolGap = 6;
constexpr int chevronSize = 14;
constexpr int chevronGap = 6;

struct Metrics {
    int height;
    int padding;
};

Metrics metricsOf(Button::Size size) {
    switch (size) {
    case Button::Size::tall:
        return {34, 14};
    case Button::Size::small:
        return {26, 10};
    case Button::Size::normal:
        break;
    }
    return {32, 14};
}

bool isFilled(Button::Kind kind) {
    return kind == Button::Kind::primary || kind == Button::Kind::alertDestructive;
}

FontRole fontOf(Button::Kind kind, Button::Size size) {
    if (size == Button::Size::small)
        return isFilled(kind) ? FontRole::tab12Semibold : FontRole::tab12Medium;
    return isFilled(kind) ? FontRole::body13Semibold : FontRole::body13Medium;
}

/// Picks one of three colours by the state of the pointer.
struct Reaction {
    bool isHovered;
    bool isPressed;

    [[nodiscard]] QColor pick(const QColor& resting, const QColor& hovered, const QColor& pressed) const {
        if (isPressed)
            return pressed;
        return isHovered ? hovered : resting;
    }
};

QColor groundOf(Button::Kind kind, const Reaction& reaction, const Palette& palette) {
    const QColor& control = palette.control;
    switch (kind) {
    case Button::Kind::primary:
        return reaction.pick(palette.blueFill, palette.primaryHovered, palette.primaryPressed);
    case Button::Kind::secondary:
        return reaction.pick(palette.card, withOpacity(control, 0.5), withOpacity(control, 0.7));
    case Button::Kind::destructive:
        return withOpacity(palette.redFill, reaction.isHovered || reaction.isPressed ? 0.16 : 0.10);
    case Button::Kind::alertDestructive:
        return reaction.pick(palette.redFill, palette.redFill.darker(108), palette.redFill.darker(120));
    case Button::Kind::textual:
        return reaction.pick(Qt::transparent, withOpacity(palette.blueFill, 0.1),
                             withOpacity(palette.blueFill, 0.16));
    }
    return {};
}

void paintSecondaryFrame(QPainter& painter, const QRect& area, const Palette& palette) {
    frameRounded(painter, area, radius, withOpacity(palette.secondary, 0.3));
    painter.save();
    painter.setClipRect(area.adjusted(0, area.height() - 2, 0, 0));
    frameRounded(painter, area, radius, withOpacity(palette.secondary, 0.2));
    painter.restore();
}

} // namespace

Button::Button(const QString& caption, Kind kind, Size size, QWidget* parent)
    : Clickable(radius, parent), m_kind(kind), m_size(size) {
    setCaption(caption);
    // May be wider than its size hint, for example to fit the wider of two captions.
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void Button::setSymbol(const QString& name) {
    m_symbol = name;
    updateGeometry();
    update();
}

void Button::setOpensMenu() {
    m_opensMenu = true;
    setAccessibleRole(*this, QAccessible::ButtonMenu);
    updateGeometry();
    update();
}

void Button::setTextColor(ColorRole color) {
    m_textColor = color;
    update();
}

int Button::contentWidth() const {
    const int before = m_symbol.isEmpty() ? 0 : symbolSize + symbolGap;
    const int behind = m_opensMenu ? chevronGap + chevronSize : 0;
    return before + textWidth(caption(), fontOf(m_kind, m_size)) + behind;
}

QSize Button::sizeHint() const {
    const Metrics metrics = metricsOf(m_size);
    return {contentWidth() + 2 * metrics.padding, metrics.height};
}

QColor Button::foreground(const Palette& palette) const {
    if (!isEnabled())
        return palette.disabled();
    if (isFilled(m_kind))
        return palette.white;
    if (m_kind == Kind::destructive)
        return palette.red;
    return m_kind == Kind::textual ? palette.*m_textColor : palette.text;
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintGround(painter, palette);
    paintContent(painter, foreground(palette));
}

void Button::paintGround(QPainter& painter, const Palette& palette) const {
    if (!isEnabled()) {
        fillRounded(painter, rect(), radius, withOpacity(palette.control, 0.5));
        return;
    }
    const bool isRed = m_kind == Kind::textual && m_textColor == &Palette::red;
    const Kind ground = isRed && isHovered() ? Kind::destructive : m_kind;
    fillRounded(painter, rect(), radius, groundOf(ground, {isHovered(), isDown()}, palette));
    if (m_kind == Kind::secondary)
        paintSecondaryFrame(painter, rect(), palette);
}

void Button::paintContent(QPainter& painter, const QColor& color) const {
    int left = (width() - contentWidth()) / 2;
    if (!m_symbol.isEmpty()) {
        paintSymbol(painter, QRect(left, 0, symbolSize, height()), m_symbol, symbolSize, color);
        left += symbolSize + symbolGap;
    }
    const FontRole font = fontOf(m_kind, m_size);
    const int text = textWidth(caption(), font);
    paintText(painter, QRect(left, 0, text, height()), caption(), font, color,
              Qt::AlignLeft | Qt::AlignVCenter, Qt::ElideNone);
    if (m_opensMenu)
        paintSymbol(painter, QRect(left + text + chevronGap, 0, chevronSize, height()), u"chevron.down"_s,
                    chevronSize, withOpacity(color, 0.8));
}

} // namespace brisklog
