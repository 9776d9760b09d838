#pragma once

#include "app/projects/ProjectView.h"
#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"

#include <QAbstractListModel>

namespace brisklog {

/// A project's entries as rows of a list view. Texts are made when a row is asked for, so that thousands of
/// entries cost what the visible ones cost.
class ProjectEntryModel final : public QAbstractListModel {
public:
    ProjectEntryModel(const TimeTrackingStore& store, const Clock& clock, QObject* parent = nullptr);

    /// Takes over what the project at that position holds now; one that does not exist has no entries.
    /// Nothing happens, and false is returned, when nothing was written to the store's projects since and the
    /// time zone is the same. A list keeps its place while it is the same project; it repaints itself, for
    /// any text may be another now.
    bool showProject(int projectIndex);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// The task's name; for screen readers everything the row says.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// Empty texts for a row that has just gone.
    [[nodiscard]] ProjectEntryRow row(int row) const;

private:
    [[nodiscard]] const Project* project() const;
    [[nodiscard]] const TimeEntry* entry(int row) const;
    void setCount(int count);

    const TimeTrackingStore& m_store;
    const Clock& m_clock;
    Calendar m_calendar;
    int m_projectIndex = -1;
    Uuid m_projectId;
    std::uint64_t m_revision = 0;
    int m_count = 0;
};

} // namespace brisklog
