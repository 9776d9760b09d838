#pragma once

#include "app/projects/ProjectView.h"
#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"

#include <QAbstractListModel>
#include <optional>

namespace brisklog {

/// A project's entries as rows of a list view. Texts are made on demand, so that only visible entries cost
/// time.
class ProjectEntryModel final : public QAbstractListModel {
public:
    ProjectEntryModel(const TimeTrackingStore& store, const Clock& clock, QObject* parent = nullptr);

    /// Shows the current entries of the project at that position; none if it does not exist. Returns false
    /// and does nothing if neither the store's projects nor the time zone have changed since. The list keeps
    /// its scroll position while the project is the same; the caller repaints it, as any text may have
    /// changed.
    bool showProject(int projectIndex);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// The task's name; for screen readers, all texts of the row.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    /// Empty texts for a row that no longer exists.
    [[nodiscard]] ProjectEntryRow row(int row) const;

    /// The entry's id; none for a row that no longer exists.
    [[nodiscard]] std::optional<Uuid> idAt(int row) const;

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
