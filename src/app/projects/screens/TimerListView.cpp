#include "app/projects/screens/TimerListView.h"

#include "ui/lists/ScrollArea.h"
#include "ui/look/Layout.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr int gapAbove = 6;
constexpr int gap = 6;
constexpr int rowHeight = 54;
constexpr int mostRowsInFull = 3;

int heightOf(std::size_t rows) {
    if (rows > mostRowsInFull)
        return mostRowsInFull * (rowHeight + gap) + rowHeight / 2;
    return static_cast<int>(rows) * (rowHeight + gap) - gap;
}

} // namespace

TimerListView::TimerListView(const TimerRowView::Actions& actions, QWidget* parent)
    : QWidget(parent), m_actions(actions), m_content(new QWidget) {
    Column{space(gapAbove), expanding(new ScrollArea(m_content))}.applyTo(*this);
    hide();
}

bool TimerListView::setTimers(const std::vector<TimerRow>& timers) {
    const bool isRebuilt = !showsTheSameTimers(timers);
    if (isRebuilt)
        rebuild(timers);
    for (std::size_t i = 0; i < timers.size(); ++i)
        m_rows[i]->setTimer(timers[i]);
    return isRebuilt;
}

std::vector<QWidget*> TimerListView::tabStops() const {
    std::vector<QWidget*> stops;
    for (const TimerRowView* row : m_rows)
        std::ranges::copy(row->tabStops(), std::back_inserter(stops));
    return stops;
}

bool TimerListView::showsTheSameTimers(const std::vector<TimerRow>& timers) const {
    return std::ranges::equal(timers, m_rows, {}, &TimerRow::entryId,
                              [](const TimerRowView* row) { return row->timer().entryId; });
}

void TimerListView::rebuild(const std::vector<TimerRow>& timers) {
    std::vector<TimerRowView*> rows;
    rows.reserve(timers.size());
    for (const TimerRow& timer : timers)
        rows.push_back(takeRow(timer));
    // The press that ended a timer may still be under way in its row.
    for (TimerRowView* gone : m_rows) {
        gone->hide();
        gone->deleteLater();
    }
    m_rows = std::move(rows);
    Column column{};
    for (TimerRowView* row : m_rows)
        column.add(row);
    column.add(stretch()).spacing(gap).applyTo(*m_content);
    setFixedHeight(gapAbove + std::max(0, heightOf(m_rows.size())));
    setVisible(!m_rows.empty());
}

TimerRowView* TimerListView::takeRow(const TimerRow& timer) {
    const auto known = std::ranges::find_if(
        m_rows, [&](const TimerRowView* row) { return row->timer().entryId == timer.entryId; });
    if (known == m_rows.end())
        return new TimerRowView(timer, m_actions, m_content);
    TimerRowView* row = *known;
    m_rows.erase(known);
    return row;
}

} // namespace brisklog
