#include "app/projects/screens/TimerList.h"

#include "ui/lists/ScrollArea.h"
#include "ui/look/Layout.h"
#include "ui/look/Pointer.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr int gapAbove = 6;
constexpr int gap = 6;
constexpr int rowHeight = 54;
constexpr int maximumFullRows = 3;

int heightOf(std::size_t rows) {
    if (rows > maximumFullRows)
        return maximumFullRows * (rowHeight + gap) + rowHeight / 2;
    return static_cast<int>(rows) * (rowHeight + gap) - gap;
}

} // namespace

TimerList::TimerList(const TimerPanel::Actions& actions, QWidget* parent)
    : QWidget(parent), m_actions(actions), m_content(new QWidget) {
    Column{space(gapAbove), expanding(new ScrollArea(m_content))}.applyTo(*this);
    hide();
}

bool TimerList::setTimers(const Uuid& projectId, const std::vector<TimerRow>& timers) {
    const bool isSameProject = std::exchange(m_projectId, projectId) == projectId;
    const bool isRebuilt = !showsTheSameTimers(timers);
    if (isRebuilt) {
        const std::vector<TimerPanel*> before = m_rows;
        rebuild(timers);
        for (TimerPanel* const row : m_rows)
            if (isSameProject && std::ranges::find(before, row) == before.end())
                showNewRow(*row);
    }
    for (std::size_t i = 0; i < timers.size(); ++i)
        m_rows[i]->setTimer(timers[i]);
    return isRebuilt;
}

std::vector<QWidget*> TimerList::tabStops() const {
    std::vector<QWidget*> stops;
    for (const TimerPanel* row : m_rows)
        std::ranges::copy(row->tabStops(), std::back_inserter(stops));
    return stops;
}

bool TimerList::hasFocusInRow(const Uuid& entryId) const {
    return std::ranges::any_of(m_rows, [&entryId](const TimerPanel* row) {
        return row->timer().entryId == entryId &&
               std::ranges::any_of(row->tabStops(), [](const QWidget* stop) { return stop->hasFocus(); });
    });
}

bool TimerList::showsTheSameTimers(const std::vector<TimerRow>& timers) const {
    return std::ranges::equal(timers, m_rows, {}, &TimerRow::entryId,
                              [](const TimerPanel* row) { return row->timer().entryId; });
}

void TimerList::rebuild(const std::vector<TimerRow>& timers) {
    std::vector<TimerPanel*> rows;
    rows.reserve(timers.size());
    for (const TimerRow& timer : timers)
        rows.push_back(takeRow(timer));
    // The press that stopped a timer may still be being handled in its row.
    for (TimerPanel* gone : m_rows) {
        gone->hide();
        gone->deleteLater();
    }
    m_rows = std::move(rows);
    Column column{};
    for (TimerPanel* row : m_rows)
        column.add(row);
    column.add(stretch()).spacing(gap).applyTo(*m_content);
    setFixedHeight(gapAbove + std::max(0, heightOf(m_rows.size())));
    setVisible(!m_rows.empty());
}

TimerPanel* TimerList::takeRow(const TimerRow& timer) {
    const auto known = std::ranges::find_if(
        m_rows, [&](const TimerPanel* row) { return row->timer().entryId == timer.entryId; });
    if (known == m_rows.end())
        return new TimerPanel(timer, m_actions, m_content);
    TimerPanel* row = *known;
    m_rows.erase(known);
    return row;
}

void TimerList::showNewRow(TimerPanel& row) {
    row.appear();
    const auto bringIntoView = [&row] {
        layOutNow(row);
        if (auto* const area = ScrollArea::around(row))
            area->bringIntoView(row, row.rect());
    };
    // The layout shows it only in the event loop's next turn.
    QMetaObject::invokeMethod(
        &row, [&row, bringIntoView] { onceNoButtonIsDown(row, bringIntoView); }, Qt::QueuedConnection);
}

} // namespace brisklog
