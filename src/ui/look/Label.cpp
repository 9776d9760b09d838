#include "ui/look/Label.h"

#include "ui/look/Painting.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>
#include <cmath>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int longTooltip = 80;

QColor textColor(const QWidget& widget, ColorRole color) {
    const Palette& palette = Palette::current();
    return widget.isEnabled() ? palette.*color : withOpacity(palette.secondary, 0.5);
}

/// The lines the text breaks into at that width; they start at the left edge, one line height apart.
std::unique_ptr<QTextLayout> brokenIntoLines(QString text, FontRole font, int width) {
    text.replace(u'\n', QChar::LineSeparator);
    auto layout = std::make_unique<QTextLayout>(text, fontFor(font));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->beginLayout();
    int top = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, top + (lineHeight(font) - line.height()) / 2});
        top += lineHeight(font);
    }
    layout->endLayout();
    return layout;
}

qreal widestLine(const QTextLayout& layout) {
    qreal widest = 0;
    for (int i = 0; i < layout.lineCount(); ++i)
        widest = std::max(widest, layout.lineAt(i).naturalTextWidth());
    return widest;
}

void drawLines(QPainter& painter, const QRect& area, const QTextLayout& layout, Qt::Alignment alignment) {
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const qreal spare = area.width() - line.naturalTextWidth();
        const bool isCentred = alignment.testFlag(Qt::AlignHCenter);
        const qreal left = isCentred ? spare / 2 : alignment.testFlag(Qt::AlignRight) ? spare : 0;
        line.draw(&painter, QPointF(area.x() + std::floor(left), area.y()));
    }
}

} // namespace

Label::Label(const QString& text, FontRole font, ColorRole color, Lines lines, QWidget* parent)
    : QLabel(parent), m_font(font), m_color(color), m_lines(lines) {
    setTextFormat(Qt::PlainText);
    setText(text);
    // Wrapped text needs more lines than its size hint has where it is narrower.
    QSizePolicy policy = lines == Lines::one ? QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed)
                                             : QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(lines == Lines::wrapped);
    setSizePolicy(policy);
}

void Label::setValue(const QString& value) {
    if (text() != value)
        setText(value);
}

void Label::setColor(ColorRole color) {
    if (m_color == color)
        return;
    m_color = color;
    update();
}

QSize Label::sizeHint() const {
    if (m_lines == Lines::one)
        return {textWidth(text(), m_font), lineHeight(m_font)};
    constexpr int unlimited = 100000;
    const auto layout = brokenIntoLines(text(), m_font, unlimited);
    return {static_cast<int>(std::ceil(widestLine(*layout))), lineHeight(m_font) * layout->lineCount()};
}

QSize Label::minimumSizeHint() const {
    return m_lines == Lines::one ? sizeHint() : QSize(0, lineHeight(m_font));
}

int Label::heightForWidth(int width) const {
    if (m_lines == Lines::one)
        return lineHeight(m_font);
    return wrappedHeight(text(), m_font, width);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor color = textColor(*this, m_color);
    if (m_lines == Lines::one) {
        paintText(painter, rect(), text(), m_font, color, alignment() | Qt::AlignVCenter, Qt::ElideNone);
        return;
    }
    painter.setPen(color);
    drawLines(painter, rect(), *brokenIntoLines(text(), m_font, width()), alignment());
}

ElidedLabel::ElidedLabel(const QString& text, FontRole font, ColorRole color, Qt::TextElideMode mode,
                         QWidget* parent)
    : QLabel(parent), m_font(font), m_color(color), m_mode(mode) {
    setTextFormat(Qt::PlainText);
    setText(text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setValue(const QString& value) {
    if (text() != value)
        setText(value);
}

void ElidedLabel::setColor(ColorRole color) {
    if (m_color == color)
        return;
    m_color = color;
    update();
}

bool ElidedLabel::isElided() const { return textWidth(text(), m_font) > width(); }

QSize ElidedLabel::sizeHint() const { return {textWidth(text(), m_font), lineHeight(m_font)}; }

QSize ElidedLabel::minimumSizeHint() const { return {0, lineHeight(m_font)}; }

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    if (isElided())
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTooltip(text()), this);
    else
        event->ignore();
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintText(painter, rect(), text(), m_font, textColor(*this, m_color), alignment() | Qt::AlignVCenter,
              m_mode);
}

int wrappedHeight(const QString& text, FontRole font, int width) {
    return lineHeight(font) * std::max(1, brokenIntoLines(text, font, width)->lineCount());
}

void paintWrapped(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color) {
    painter.setPen(color);
    drawLines(painter, area, *brokenIntoLines(text, font, area.width()), Qt::AlignLeft);
}

QString plainTooltip(const QString& text) {
    const bool isShort = text.size() <= longTooltip && !Qt::mightBeRichText(text);
    return isShort ? text : u"<qt>%1</qt>"_s.arg(text.toHtmlEscaped());
}

} // namespace brisklog
