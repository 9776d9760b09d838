#include "ui/controls/SectionHeader.h"

#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int symbolSize = 16;
constexpr int gap = 6;
constexpr FontRole titleFont = FontRole::body13Semibold;

} // namespace

void paintSectionHeader(QPainter& painter, const QRect& area, const QString& title, const QString& symbol,
                        const Palette& palette) {
    const bool isDark = palette.scheme == ColorScheme::dark;
    paintSymbol(painter, QRect(area.topLeft(), QSize(symbolSize, area.height())), symbol, symbolSize,
                isDark ? palette.white : palette.blue);
    paintText(painter, area.adjusted(symbolSize + gap, 0, 0, 0), title, titleFont,
              isDark ? palette.white : palette.text);
}

SectionHeader::SectionHeader(const QString& title, const QString& systemImage, QWidget* parent)
    : QLabel(parent), m_systemImage(systemImage) {
    setTextFormat(Qt::PlainText);
    setText(title);
    setAccessibleRole(*this, QAccessible::Heading);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize SectionHeader::sizeHint() const {
    return {symbolSize + gap + textWidth(text(), titleFont), lineHeight(titleFont)};
}

void SectionHeader::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSectionHeader(painter, rect(), text(), m_systemImage, Palette::current());
}

} // namespace brisklog
