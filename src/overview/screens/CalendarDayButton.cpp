#include "overview/screens/CalendarDayButton.h"

#include "ui/look/Figures.h"
#include "ui/look/Painting.h"
#include "ui/look/Text.h"

#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 4;
constexpr int numberTop = 9;
constexpr int numberHeight = 16;
constexpr int dotGap = 3;
constexpr int dotSize = 6;

FontRole fontOf(const CalendarCell& cell) {
    if (cell.isToday)
        return FontRole::tab12Bold;
    return cell.isOfMonth ? FontRole::tab12Medium : FontRole::tab12;
}

QString description(const CalendarCell& cell) {
    QStringList marks;
    if (cell.isToday)
        marks << u"Heute"_s;
    if (cell.isSelected)
        marks << u"Ausgewählt"_s;
    return marks.join(u", "_s);
}

} // namespace

CalendarDayButton::CalendarDayButton(QWidget* parent) : Clickable(radius, parent) {
    setFocusPolicy(Qt::NoFocus);
}

void CalendarDayButton::setCell(const std::optional<CalendarCell>& cell) {
    if (m_cell == cell)
        return;
    const bool wasChosen = isChosen().value_or(false);
    m_cell = cell;
    if (isChosen().value_or(false) != wasChosen)
        announceChoice();
    setEnabled(cell.has_value());
    setAccessibleName(cell ? screenText(cell->name) : QString());
    setAccessibleDescription(cell ? description(*cell) : QString());
    update();
}

std::optional<bool> CalendarDayButton::isChosen() const {
    return m_cell ? std::optional(m_cell->isSelected) : std::nullopt;
}

void CalendarDayButton::paintEvent(QPaintEvent*) {
    if (!m_cell)
        return;
    QPainter painter(this);
    const Palette& palette = Palette::current();
    if (m_cell->isSelected)
        fillRounded(painter, rect(), radius, withOpacity(palette.blueFill, 0.2));
    else if (isHovered())
        fillRounded(painter, rect(), radius, withOpacity(palette.control, 0.5));
    paintFigures(painter, QRect(0, numberTop, width(), numberHeight), screenText(m_cell->dayOfMonth),
                 fontOf(*m_cell), m_cell->isOfMonth ? palette.text : palette.secondary, Qt::AlignCenter);
    if (m_cell->hasData)
        fillRounded(painter,
                    QRect((width() - dotSize) / 2, numberTop + numberHeight + dotGap, dotSize, dotSize),
                    dotSize / 2.0, palette.blue);
}

void CalendarDayButton::keyPressEvent(QKeyEvent* event) {
    if (!m_handleKey || event->modifiers() & ~Qt::KeypadModifier || !m_handleKey(event->key()))
        Clickable::keyPressEvent(event);
}

} // namespace brisklog
