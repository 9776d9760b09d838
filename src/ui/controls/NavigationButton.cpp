#include "ui/controls/NavigationButton.h"

#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int radius = 6;
constexpr QSize barSize(84, 46);
constexpr int barSymbol = 20;
constexpr int barGap = 2;
constexpr int rowHeight = 30;
constexpr int rowSymbol = 16;
constexpr int rowGap = 6;
constexpr int rowPaddingLeft = 8;
constexpr int rowPaddingRight = 9;

} // namespace

QColor navigationButtonForeground(const NavigationButtonState& state, const Palette& palette) {
    if (state.isDisabled)
        return palette.disabled();
    if (state.destructive)
        return state.isHovered ? palette.white : palette.red;
    if (state.accent)
        return state.isHovered ? palette.white : palette.blue;
    return state.isSelected || state.isHovered ? palette.text : palette.secondary;
}

QColor navigationButtonBackground(const NavigationButtonState& state, const Palette& palette) {
    if (state.isDisabled)
        return Qt::transparent;
    if (state.isHovered && state.accent)
        return withOpacity(palette.blueFill, 0.9);
    // Only here is white text on the control colour, which must be dark to keep it legible.
    const QColor& control =
        state.destructive && state.isHovered ? palette.controlUnderWhiteText : palette.control;
    if (state.isHovered && state.isSelected)
        return withOpacity(control, 0.9);
    if (state.isHovered)
        return withOpacity(control, 0.7);
    if (state.accent)
        return withOpacity(palette.blueFill, 0.2);
    return state.isSelected ? withOpacity(control, 0.8) : QColor(Qt::transparent);
}

NavigationButton::NavigationButton(const Content& content, Form form, QWidget* parent)
    : Clickable(radius, parent), m_icon(content.icon), m_form(form), m_destructive(content.destructive),
      m_isSelected(content.isSelected), m_accent(content.accent) {
    setCaption(content.label);
    setToolTip(content.label);
    setEnabled(!content.isDisabled);
    if (content.action)
        onClick(content.action);
    if (m_form == Form::bar)
        setAccessibleRole(*this, QAccessible::PageTab);
}

void NavigationButton::setSelected(bool isSelected) {
    if (m_isSelected == isSelected)
        return;
    m_isSelected = isSelected;
    announceChoice();
    update();
}

std::optional<bool> NavigationButton::isChosen() const {
    return m_form == Form::bar ? std::optional(m_isSelected) : std::nullopt;
}

NavigationButtonState NavigationButton::state() const {
    return {.isDisabled = !isEnabled(),
            .destructive = m_destructive,
            .isSelected = m_isSelected,
            .accent = m_accent,
            .isHovered = isHovered()};
}

QSize NavigationButton::sizeHint() const {
    if (m_form == Form::bar)
        return barSize;
    if (m_form == Form::symbolOnly)
        return {rowHeight, rowHeight};
    const int text = textWidth(caption(), FontRole::tab12Medium);
    return {rowPaddingLeft + rowSymbol + rowGap + text + rowPaddingRight, rowHeight};
}

void NavigationButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    fillRounded(painter, rect(), radius, navigationButtonBackground(state(), palette));
    const QColor color = navigationButtonForeground(state(), palette);
    if (m_form == Form::bar)
        paintBar(painter, color);
    else if (m_form == Form::row)
        paintRow(painter, color);
    else
        paintSymbol(painter, rect(), m_icon, rowSymbol, color);
}

void NavigationButton::paintBar(QPainter& painter, const QColor& color) const {
    const FontRole font = m_isSelected ? FontRole::caption11Semibold : FontRole::caption11Medium;
    const int content = barSymbol + barGap + lineHeight(font);
    const int top = (height() - content) / 2;
    paintSymbol(painter, QRect(0, top, width(), barSymbol), m_icon, barSymbol, color);
    paintText(painter, QRect(0, top + barSymbol + barGap, width(), lineHeight(font)), caption(), font, color,
              Qt::AlignCenter);
}

void NavigationButton::paintRow(QPainter& painter, const QColor& color) const {
    paintSymbol(painter, QRect(rowPaddingLeft, 0, rowSymbol, height()), m_icon, rowSymbol, color);
    const int left = rowPaddingLeft + rowSymbol + rowGap;
    paintText(painter, rect().adjusted(left, 0, -rowPaddingRight, 0), caption(), FontRole::tab12Medium,
              color);
}

} // namespace brisklog
