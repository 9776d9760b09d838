#include "ui/controls/MonthPopup.h"

#include "ui/controls/SymbolButton.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int padding = 8;
constexpr QSize cellSize(32, 28);
constexpr int columns = 7;
constexpr int rows = 6;
constexpr int headerHeight = 28;
constexpr int headingHeight = 20;
constexpr int gridTop = padding + headerHeight + headingHeight;

const QLocale& german() {
    static const QLocale locale(QLocale::German, QLocale::Germany);
    return locale;
}

} // namespace

MonthPopup::MonthPopup(QWidget& anchor, const QDate& selected, Qt::DayOfWeek firstWeekday,
                       std::function<void(const QDate&)> chosen)
    : Popup(anchor), m_selected(selected), m_current(selected), m_firstWeekday(firstWeekday),
      m_chosen(std::move(chosen)), m_title(asHeading(new Label({}, FontRole::body13Semibold))) {
    setAccessibleRole(*this, QAccessible::Dialog);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    auto* previous = new SymbolButton(u"chevron.left"_s, u"Voriger Monat"_s);
    auto* next = new SymbolButton(u"chevron.right"_s, u"Nächster Monat"_s);
    previous->onClick([this] { moveTo(m_current.addMonths(-1)); });
    next->onClick([this] { moveTo(m_current.addMonths(1)); });
    Column{Row{space(8), m_title, stretch(), previous, next}, stretch()}.margins(padding).applyTo(*this);
    setFixedSize(2 * padding + columns * cellSize.width(), gridTop + rows * cellSize.height() + padding);
    moveTo(selected);
}

bool MonthPopup::event(QEvent* event) {
    if (event->type() == QEvent::Show)
        setFocus(Qt::PopupFocusReason);
    return Popup::event(event);
}

QDate MonthPopup::firstShownDay() const {
    const QDate first(m_current.year(), m_current.month(), 1);
    return first.addDays(-((first.dayOfWeek() - m_firstWeekday + columns) % columns));
}

QRect MonthPopup::cellRect(int cell) const {
    return {QPoint(padding + cell % columns * cellSize.width(), gridTop + cell / columns * cellSize.height()),
            cellSize};
}

QDate MonthPopup::dayAt(const QPoint& position) const {
    for (int cell = 0; cell < columns * rows; ++cell)
        if (cellRect(cell).contains(position))
            return firstShownDay().addDays(cell);
    return {};
}

void MonthPopup::moveTo(const QDate& day) {
    if (!day.isValid())
        return;
    m_current = day;
    m_title->setValue(german().toString(day, u"MMMM yyyy"_s));
    const QString name = german().toString(day, QLocale::LongFormat);
    setAccessibleName(name);
    if (isVisible())
        announce(*this, name);
    update();
}

void MonthPopup::choose(const QDate& day) {
    if (!day.isValid())
        return;
    // A copy: closing may destroy this before the action has run.
    const auto chosen = m_chosen;
    close();
    chosen(day);
}

void MonthPopup::paintEvent(QPaintEvent* event) {
    Popup::paintEvent(event);
    QPainter painter(this);
    paintHeadings(painter);
    for (int cell = 0; cell < columns * rows; ++cell)
        paintDay(painter, cell);
}

QString MonthPopup::heading(int column) const {
    return german().dayName(firstShownDay().addDays(column).dayOfWeek(), QLocale::ShortFormat);
}

void MonthPopup::paintHeadings(QPainter& painter) const {
    for (int column = 0; column < columns; ++column) {
        const QRect area(cellRect(column).x(), gridTop - headingHeight, cellSize.width(), headingHeight);
        paintText(painter, area, heading(column), FontRole::caption11, Palette::current().secondary,
                  Qt::AlignCenter);
    }
}

void MonthPopup::paintDay(QPainter& painter, int cell) const {
    const Palette& palette = Palette::current();
    const QDate day = firstShownDay().addDays(cell);
    const QRect area = cellRect(cell).adjusted(1, 1, -1, -1);
    const bool isOfMonth = day.month() == m_current.month();
    if (day == m_selected)
        fillRounded(painter, area, 4, withOpacity(palette.blueFill, 0.2));
    else if (day == m_hovered)
        fillRounded(painter, area, 4, withOpacity(palette.control, 0.5));
    if (day == m_current)
        frameRounded(painter, area, 4, palette.blue, 2);
    paintText(painter, area, QString::number(day.day()), isOfMonth ? FontRole::tab12Medium : FontRole::tab12,
              isOfMonth ? palette.text : palette.secondary, Qt::AlignCenter);
}

void MonthPopup::mousePressEvent(QMouseEvent* event) {
    const QPoint position = event->position().toPoint();
    if (rect().contains(position))
        choose(dayAt(position));
    else
        Popup::mousePressEvent(event);
}

void MonthPopup::mouseMoveEvent(QMouseEvent* event) {
    m_hovered = dayAt(event->position().toPoint());
    update();
}

void MonthPopup::leaveEvent(QEvent*) {
    m_hovered = {};
    update();
}

void MonthPopup::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return moveTo(m_current.addDays(-1));
    case Qt::Key_Right:
        return moveTo(m_current.addDays(1));
    case Qt::Key_Up:
        return moveTo(m_current.addDays(-columns));
    case Qt::Key_Down:
        return moveTo(m_current.addDays(columns));
    case Qt::Key_PageUp:
        return moveTo(m_current.addMonths(-1));
    case Qt::Key_PageDown:
        return moveTo(m_current.addMonths(1));
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return choose(m_current);
    case Qt::Key_Escape:
        close();
        return;
    default:
        Popup::keyPressEvent(event);
    }
}

} // namespace brisklog
