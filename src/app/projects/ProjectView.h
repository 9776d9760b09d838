#pragma once

#include "core/TimeTrackingStore.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One running or paused timer as its row shows it.
struct TimerRow {
    Uuid entryId;
    std::string taskName;
    /// The running duration, 00:05:07.
    std::string duration;
    bool isPaused = false;

    bool operator==(const TimerRow&) const = default;
};

/// The texts in the row of one stored entry.
struct ProjectEntryRow {
    /// The task's name on one line.
    std::string taskName;
    std::string start;
    /// "--" while the entry has no end.
    std::string end;
    /// Hours and minutes; up to `now` while the entry has no end.
    std::string duration;
    /// At the entry's own rate, else the project's; "--" without either.
    std::string earnings;

    bool operator==(const ProjectEntryRow&) const = default;
};

[[nodiscard]] ProjectEntryRow projectEntryRow(const TimeEntry& entry, std::optional<double> projectRate,
                                              const Calendar& calendar, Date now);

/// What the view of a project depends on.
struct ProjectServices {
    TimeTrackingStore& store;
    Clock& clock;
    RunLoop& runLoop;
    /// Writes the report of a project's entries to a file of the user's choice; may be empty.
    std::function<void(const Project&)> exportReport;
    /// Makes screen readers say it; may be empty.
    std::function<void(const std::string&)> announce = {};
};

/// The state and actions of one project's screen.
class ProjectView final : public ObservableObject {
public:
    ProjectView(const ProjectServices& services, int projectIndex);

    /// The position in the store's list; may point past its end.
    Published<int> projectIndex;
    /// As typed.
    Published<std::string> taskName{*this};
    /// Set from the start of a timer until the typed name is cleared; nothing can be typed or started then.
    Published<bool> isProcessing{*this, false};
    /// Whether the task's name has the focus; true at first, so that the user can start typing.
    bool isTaskNameFocused = true;

    [[nodiscard]] bool hasProject() const;

    /// The project; a substitute named "Fehler" while the position is invalid.
    [[nodiscard]] const Project& project() const;

    /// The timers of this project, the earliest first.
    [[nodiscard]] std::vector<TimerRow> timers() const;

    /// Starts a timer under the name exactly as typed, and clears the name 0.3 seconds later. A blank name
    /// starts nothing.
    void start();

    void pauseOrResume(const TimerRow& timer);
    void stop(const Uuid& entryId);

    /// Removes all entries of the project; call once the user has confirmed.
    void resetProject();

    /// Whether there is a project and a way to export it.
    [[nodiscard]] bool canExportPDF() const { return hasProject() && m_services.exportReport; }

    /// Asks where to save the report of the project's entries; nothing happens while `canExportPDF` is false.
    void exportPDF();

private:
    void finishStart();
    /// What a screen reader says once that timer has been stopped; empty if it is not this project's.
    [[nodiscard]] std::string stopped(const Uuid& entryId) const;
    void announce(const std::string& text) const;

    ProjectServices m_services;
    const Project m_substitute;
    std::unique_ptr<Timer> m_clearing;
};

} // namespace brisklog
