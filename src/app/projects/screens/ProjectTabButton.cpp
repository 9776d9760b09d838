#include "app/projects/screens/ProjectTabButton.h"

#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QKeyEvent>
#include <QPainter>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int tabHeight = 34;
/// The line of the selected tab, over the strip's base line.
constexpr int selectionHeight = 2;
constexpr int selectionInset = 4;
constexpr int paddingLeft = 7;
constexpr int paddingRight = 9;
constexpr int symbolSize = 14;
constexpr int symbolAloneSize = 16;
constexpr int gap = 5;
constexpr int radius = 6;

} // namespace

ProjectTabButton::ProjectTabButton(QWidget* parent) : Clickable(radius, parent) {
    setAccessibleRole(*this, QAccessible::PageTab);
}

void ProjectTabButton::setContent(const Content& content) {
    if (m_content == content)
        return;
    const bool wasSelected = std::exchange(m_content, content).isSelected;
    setCaption(content.label);
    setAccessibleDescription(content.state);
    if (content.isSelected != wasSelected)
        announceChoice();
    updateTooltip();
    update();
}

void ProjectTabButton::setForm(Form form) {
    m_form = form;
    updateTooltip();
    update();
}

int ProjectTabButton::naturalWidth(const QString& label) {
    // Measured in the selected tab's font weight, so that tabs do not move when the selection changes.
    return paddingLeft + symbolSize + gap + textWidth(label, FontRole::tab12Semibold) + paddingRight;
}

QSize ProjectTabButton::sizeHint() const { return {naturalWidth(m_content.label), tabHeight}; }

bool ProjectTabButton::showsWholeLabel() const {
    return m_form == Form::labelled && naturalWidth(m_content.label) <= width();
}

void ProjectTabButton::updateTooltip() {
    if (m_content.state.isEmpty())
        setToolTip(showsWholeLabel() ? QString() : plainTooltip(m_content.label));
    else
        setToolTip(plainTooltip(u"%1 – %2"_s.arg(m_content.label, m_content.state)));
}

void ProjectTabButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    const QColor color = m_content.isSelected || isHovered() ? palette.text : palette.secondary;
    const QColor symbolColor = m_content.symbolColor ? palette.*m_content.symbolColor : color;
    const QRect area = rect().adjusted(0, 0, 0, -1);
    if (m_form == Form::symbolOnly) {
        paintSymbol(painter, area, m_content.symbol, symbolAloneSize, symbolColor);
    } else {
        paintSymbol(painter, QRect(paddingLeft, 0, symbolSize, area.height()), m_content.symbol, symbolSize,
                    symbolColor);
        paintText(painter, area.adjusted(paddingLeft + symbolSize + gap, 0, -paddingRight, 0),
                  m_content.label, m_content.isSelected ? FontRole::tab12Semibold : FontRole::tab12Medium,
                  color);
    }
    if (m_content.isSelected) {
        const bool isDark = palette.scheme == ColorScheme::dark;
        fillRounded(painter,
                    QRectF(selectionInset, rect().height() - selectionHeight, width() - 2 * selectionInset,
                           selectionHeight),
                    selectionHeight / 2.0, isDark ? palette.blue : palette.blueFill);
    }
}

void ProjectTabButton::resizeEvent(QResizeEvent* event) {
    Clickable::resizeEvent(event);
    updateTooltip();
}

void ProjectTabButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Left)
        m_step(-1);
    else if (event->key() == Qt::Key_Right)
        m_step(1);
    else
        Clickable::keyPressEvent(event);
}

} // namespace brisklog
