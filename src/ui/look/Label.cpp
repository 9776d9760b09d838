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

/// The lines of the text wrapped at that width; they are left-aligned, one line height apart.
std::unique_ptr<QTextLayout> wrappedLayout(QString text, FontRole font, int width) {
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

RoleLabel::RoleLabel(const QString& text, FontRole font, ColorRole color, QWidget* parent)
    : QLabel(parent), m_font(font), m_color(color) {
    setTextFormat(Qt::PlainText);
    setText(text);
}

void RoleLabel::setValue(const QString& value) {
    if (text() != value)
        setText(value);
}

void RoleLabel::setColor(ColorRole color) {
    if (m_color == color)
        return;
    m_color = color;
    update();
}

QColor RoleLabel::color() const {
    const Palette& palette = Palette::current();
    return isEnabled() ? palette.*m_color : palette.disabled();
}

Label::Label(const QString& text, FontRole font, ColorRole color, Lines lines, QWidget* parent)
    : RoleLabel(text, font, color, parent), m_lines(lines) {
    // A wrapped label narrower than its size hint needs more lines than that has.
    QSizePolicy policy = lines == Lines::one ? QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed)
                                             : QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(lines == Lines::wrapped);
    setSizePolicy(policy);
}

QSize Label::sizeHint() const {
    if (m_lines == Lines::one)
        return {textWidth(text(), fontRole()), lineHeight(fontRole())};
    constexpr int unlimited = 100000;
    const auto layout = wrappedLayout(text(), fontRole(), unlimited);
    return {static_cast<int>(std::ceil(widestLine(*layout))), lineHeight(fontRole()) * layout->lineCount()};
}

QSize Label::minimumSizeHint() const {
    return m_lines == Lines::one ? sizeHint() : QSize(0, lineHeight(fontRole()));
}

int Label::heightForWidth(int width) const {
    if (m_lines == Lines::one)
        return lineHeight(fontRole());
    return wrappedHeight(text(), fontRole(), width);
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_lines == Lines::one) {
        paintText(painter, rect(), text(), fontRole(), color(), alignment() | Qt::AlignVCenter,
                  Qt::ElideNone);
        return;
    }
    painter.setPen(color());
    drawLines(painter, rect(), *wrappedLayout(text(), fontRole(), width()), alignment());
}

ElidedLabel::ElidedLabel(const QString& text, FontRole font, ColorRole color, Qt::TextElideMode mode,
                         QWidget* parent)
    : RoleLabel(text, font, color, parent), m_mode(mode) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

bool ElidedLabel::isElided() const { return textWidth(text(), fontRole()) > width(); }

QSize ElidedLabel::sizeHint() const { return {textWidth(text(), fontRole()), lineHeight(fontRole())}; }

QSize ElidedLabel::minimumSizeHint() const { return {0, lineHeight(fontRole())}; }

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
    paintText(painter, rect(), text(), fontRole(), color(), alignment() | Qt::AlignVCenter, m_mode);
}

int wrappedHeight(const QString& text, FontRole font, int width) {
    return lineHeight(font) * std::max(1, wrappedLayout(text, font, width)->lineCount());
}

void paintWrapped(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color) {
    painter.setPen(color);
    drawLines(painter, area, *wrappedLayout(text, font, area.width()), Qt::AlignLeft);
}

QString textIfElided(const QString& text, FontRole font, int width) {
    return textWidth(text, font) > width ? text : QString();
}

QString plainTooltip(const QString& text) {
    const bool isShort = text.size() <= longTooltip && !Qt::mightBeRichText(text);
    return isShort ? text : u"<qt>%1</qt>"_s.arg(text.toHtmlEscaped());
}

} // namespace brisklog
