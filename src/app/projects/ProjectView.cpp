#include "app/projects/ProjectView.h"

#include "foundation/GermanFormat.h"
#include "foundation/Text.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace brisklog {
namespace {

/// Long enough to see that what was typed has become a timer.
constexpr TimeInterval clearingDelay = 0.3;
constexpr const char* substituteName = "Fehler";
constexpr const char* noDuration = "00:00:00";

TimerRow timerRow(const ActiveEntryState& state, Date now) {
    return {.entryId = state.id,
            .taskName = text::onOneLine(state.entry.taskName),
            .duration = format::runningDuration(state.currentDuration(now), noDuration),
            .isPaused = state.isPaused};
}

} // namespace

ProjectEntryRow projectEntryRow(const TimeEntry& entry, std::optional<double> projectRate,
                                const Calendar& calendar, Date now) {
    return {.taskName = text::onOneLine(entry.taskName),
            .start = entry.formattedStart(calendar),
            .end = entry.formattedEnd(calendar),
            .duration = format::duration(entry.duration(now), "0h 0m"),
            .earnings = entry.formattedEarnings(projectRate, now)};
}

ProjectView::ProjectView(const ProjectServices& services, int index)
    : projectIndex(*this, index),
      m_services(services), m_substitute{.id = {}, .name = substituteName, .hourlyRate = {}, .entries = {}} {}

bool ProjectView::hasProject() const {
    return *projectIndex >= 0 && std::cmp_less(*projectIndex, m_services.store.projects->size());
}

const Project& ProjectView::project() const {
    return hasProject() ? m_services.store.projects.get()[static_cast<std::size_t>(*projectIndex)]
                        : m_substitute;
}

std::vector<TimerRow> ProjectView::timers() const {
    std::vector<const ActiveEntryState*> states;
    for (const auto& [id, state] : m_services.store.activeEntries.get())
        if (state.projectId == project().id)
            states.push_back(&state);
    // The id breaks ties between timers started at the same moment, so that rows never change places.
    std::ranges::sort(states, {}, [](const ActiveEntryState* state) {
        return std::tuple(state->entry.startTime.secondsSinceReference, state->id);
    });
    std::vector<TimerRow> rows;
    const Date now = m_services.clock.now();
    std::ranges::transform(states, std::back_inserter(rows),
                           [now](const ActiveEntryState* state) { return timerRow(*state, now); });
    return rows;
}

void ProjectView::start() {
    if (isProcessing || text::trimmed(*taskName).empty())
        return;
    isProcessing = true;
    m_services.store.startTracking(taskName);
    announce("Timer gestartet: " + text::onOneLine(taskName));
    m_clearing = m_services.runLoop.runAfter(clearingDelay, [this] { finishStart(); });
}

void ProjectView::finishStart() {
    taskName = "";
    isProcessing = false;
}

void ProjectView::pauseOrResume(const TimerRow& timer) {
    if (timer.isPaused)
        m_services.store.resumeTracking(timer.entryId);
    else
        m_services.store.pauseTracking(timer.entryId);
    announce((timer.isPaused ? "Timer fortgesetzt: " : "Timer pausiert: ") + timer.taskName);
}

void ProjectView::stop(const Uuid& entryId) {
    const bool isRunning = m_services.store.activeEntries->contains(entryId);
    m_services.store.stopTracking(entryId);
    if (isRunning)
        announce(stopped(entryId));
}

std::string ProjectView::stopped(const Uuid& entryId) const {
    const std::vector<TimeEntry>& entries = project().entries;
    const auto entry = std::ranges::find(entries, entryId, &TimeEntry::id);
    if (entry == entries.end())
        return {};
    return "Timer gestoppt: " + text::onOneLine(entry->taskName) + ", " +
           format::duration(entry->duration(m_services.clock.now()), "0h 0m");
}

void ProjectView::announce(const std::string& text) const {
    if (m_services.announce && !text.empty())
        m_services.announce(text);
}

void ProjectView::resetProject() { m_services.store.resetProject(projectIndex); }

void ProjectView::exportPDF() {
    if (canExportPDF())
        m_services.exportReport(project());
}

} // namespace brisklog
