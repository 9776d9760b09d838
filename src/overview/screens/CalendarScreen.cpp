#include "overview/screens/CalendarScreen.h"

#include "overview/screens/CalendarDayButton.h"
#include "ui/controls/SymbolButton.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QGridLayout>
#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int columns = CalendarView::columns;
constexpr int cellCount = CalendarView::rows * columns;
constexpr int rowGap = 2;
constexpr QMargins cardMargins{7, 8, 7, 8 + cardShadow};

SymbolButton* chevron(const QString& symbol, const QString& tooltip) {
    auto* const button = new SymbolButton(symbol, tooltip);
    button->setColor(&Palette::text);
    return button;
}

} // namespace

CalendarScreen::CalendarScreen(const CalendarServices& services, QWidget* parent)
    : Screen(parent), m_view(services), m_title(asHeading(new Label({}, FontRole::body13Semibold))) {
    auto* const previous = chevron(u"chevron.left"_s, u"Voriger Monat"_s);
    auto* const next = chevron(u"chevron.right"_s, u"Nächster Monat"_s);
    previous->onClick([this] {
        m_view.showPreviousMonth();
        announce(*this, screenText(m_view.monthTitle()));
    });
    next->onClick([this] {
        m_view.showNextMonth();
        announce(*this, screenText(m_view.monthTitle()));
    });
    Column{Row{previous, stretch(), m_title, stretch(), next}, space(5), headings(), space(6), grid()}
        .margins(cardMargins)
        .applyTo(*this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    observe(m_view);
    observe(m_view.autoTrackingManager());
    observe(services.tick);
}

QWidget* CalendarScreen::headings() {
    Row labels{};
    for (int column = 0; column < columns; ++column) {
        m_headings.push_back(new Label({}, FontRole::caption11, &Palette::secondary));
        m_headings.back()->setAlignment(Qt::AlignCenter);
        labels.add(expanding(m_headings.back()));
    }
    return asWidget(labels);
}

QWidget* CalendarScreen::grid() {
    auto* const cells = new QWidget;
    auto* const layout = new QGridLayout(cells);
    layout->setContentsMargins({});
    layout->setHorizontalSpacing(0);
    layout->setVerticalSpacing(rowGap);
    for (int cell = 0; cell < cellCount; ++cell) {
        auto* const view = new CalendarDayButton;
        view->onClick([this, cell] { choose(cell); });
        view->onKey([this](int key) { return handleKey(key); });
        layout->addWidget(view, cell / columns, cell % columns, Qt::AlignCenter);
        layout->setColumnStretch(cell % columns, 1);
        m_dayButtons.push_back(view);
    }
    return cells;
}

void CalendarScreen::refresh() {
    m_cells = m_view.cells();
    m_title->setValue(screenText(m_view.monthTitle()));
    for (int column = 0; column < columns; ++column)
        m_headings[static_cast<std::size_t>(column)]->setValue(screenText(m_view.columnHeading(column)));
    for (std::size_t cell = 0; cell < m_cells.size(); ++cell)
        m_dayButtons[cell]->setCell(m_cells[cell]);
    if (!gridHasFocus())
        setCurrentCell(startingCell());
}

void CalendarScreen::showEvent(QShowEvent* event) {
    // A new day may have begun while it was hidden.
    refreshSoon();
    Screen::showEvent(event);
}

void CalendarScreen::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, rect(), Palette::current());
}

bool CalendarScreen::gridHasFocus() const {
    return m_dayButtons[static_cast<std::size_t>(m_currentCell)]->hasFocus();
}

int CalendarScreen::startingCell() const {
    const auto find = [this](auto matches) {
        const auto found = std::ranges::find_if(
            m_cells, [&matches](const std::optional<CalendarCell>& cell) { return cell && matches(*cell); });
        return static_cast<int>(found - m_cells.begin());
    };
    const int selected = find([](const CalendarCell& cell) { return cell.isSelected; });
    if (selected < cellCount)
        return selected;
    const int today = find([](const CalendarCell& cell) { return cell.isToday && cell.isOfMonth; });
    return today < cellCount ? today : find([](const CalendarCell& cell) { return cell.isOfMonth; });
}

int CalendarScreen::cellNamed(const std::string& name) const {
    const auto found = std::ranges::find_if(
        m_cells, [&name](const std::optional<CalendarCell>& cell) { return cell && cell->name == name; });
    return static_cast<int>(found - m_cells.begin());
}

int CalendarScreen::cellOfDay(const std::string& dayOfMonth) const {
    int last = 0;
    for (int cell = 0; cell < cellCount; ++cell) {
        const auto& content = m_cells[static_cast<std::size_t>(cell)];
        if (!content || !content->isOfMonth)
            continue;
        last = cell;
        if (content->dayOfMonth == dayOfMonth)
            break;
    }
    return last;
}

void CalendarScreen::setCurrentCell(int cell) {
    m_dayButtons[static_cast<std::size_t>(m_currentCell)]->setFocusPolicy(Qt::NoFocus);
    m_currentCell = cell;
    m_dayButtons[static_cast<std::size_t>(cell)]->setFocusPolicy(Qt::TabFocus);
}

void CalendarScreen::choose(int cell) {
    const auto& chosen = m_cells[static_cast<std::size_t>(cell)];
    if (!chosen)
        return;
    if (!gridHasFocus())
        setCurrentCell(cell);
    m_view.selectDate(chosen->date);
}

bool CalendarScreen::handleKey(int key) {
    switch (key) {
    case Qt::Key_Left:
        moveBy(-1);
        return true;
    case Qt::Key_Right:
        moveBy(1);
        return true;
    case Qt::Key_Up:
        moveBy(-columns);
        return true;
    case Qt::Key_Down:
        moveBy(columns);
        return true;
    case Qt::Key_PageUp:
        moveByMonth(-1);
        return true;
    case Qt::Key_PageDown:
        moveByMonth(1);
        return true;
    default:
        return false;
    }
}

/// Beyond the grid's edge it switches to the neighbouring month, whose grid contains the current day too.
void CalendarScreen::moveBy(int days) {
    int cell = m_currentCell + days;
    if (cell < 0 || cell >= cellCount) {
        const std::string name = m_cells[static_cast<std::size_t>(m_currentCell)]->name;
        days < 0 ? m_view.showPreviousMonth() : m_view.showNextMonth();
        refresh();
        cell = cellNamed(name) + days;
    }
    // Steps over a day that the time zone skipped.
    moveTo(hasDay(cell) ? cell : cell + days);
}

void CalendarScreen::moveByMonth(int months) {
    const std::string number = m_cells[static_cast<std::size_t>(m_currentCell)]->dayOfMonth;
    months < 0 ? m_view.showPreviousMonth() : m_view.showNextMonth();
    refresh();
    moveTo(cellOfDay(number));
}

bool CalendarScreen::hasDay(int cell) const {
    return cell >= 0 && cell < cellCount && m_cells[static_cast<std::size_t>(cell)];
}

void CalendarScreen::moveTo(int cell) {
    if (!hasDay(cell))
        return;
    setCurrentCell(cell);
    m_dayButtons[static_cast<std::size_t>(cell)]->focusVisibly();
}

} // namespace brisklog
