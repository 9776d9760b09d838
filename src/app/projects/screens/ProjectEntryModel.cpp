#include "app/projects/screens/ProjectEntryModel.h"

#include "ui/look/Text.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

QString spoken(const ProjectEntryRow& row) {
    return u"%1, %2 bis %3, %4, %5"_s.arg(screenText(row.taskName), screenText(row.start),
                                          screenText(row.end), screenText(row.duration),
                                          screenText(row.earnings));
}

} // namespace

ProjectEntryModel::ProjectEntryModel(const TimeTrackingStore& store, const Clock& clock, QObject* parent)
    : QAbstractListModel(parent), m_store(store), m_clock(clock), m_calendar(clock.calendar()) {}

bool ProjectEntryModel::showProject(int projectIndex) {
    const std::uint64_t revision = m_store.projects.revision();
    const Calendar calendar = m_clock.calendar();
    if (m_projectIndex == projectIndex && m_revision == revision && m_calendar == calendar)
        return false;
    m_calendar = calendar;
    m_projectIndex = projectIndex;
    m_revision = revision;
    const Project* const shown = project();
    const int count = shown ? static_cast<int>(shown->entries.size()) : 0;
    const Uuid id = shown ? shown->id : Uuid();
    if (std::exchange(m_projectId, id) != id) {
        beginResetModel();
        m_count = count;
        endResetModel();
    } else {
        setCount(count);
    }
    return true;
}

void ProjectEntryModel::setCount(int count) {
    if (count > m_count) {
        beginInsertRows({}, m_count, count - 1);
        m_count = count;
        endInsertRows();
    } else if (count < m_count) {
        beginRemoveRows({}, count, m_count - 1);
        m_count = count;
        endRemoveRows();
    }
}

int ProjectEntryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_count; }

const Project* ProjectEntryModel::project() const {
    const std::vector<Project>& projects = m_store.projects;
    const bool exists = m_projectIndex >= 0 && std::cmp_less(m_projectIndex, projects.size());
    return exists ? &projects[static_cast<std::size_t>(m_projectIndex)] : nullptr;
}

const TimeEntry* ProjectEntryModel::entry(int row) const {
    // The store may have changed since the last `showProject`, but the view still asks for the rows it shows.
    const Project* const shown = project();
    const bool exists =
        shown && shown->id == m_projectId && row >= 0 && std::cmp_less(row, shown->entries.size());
    return exists ? &shown->entries[static_cast<std::size_t>(row)] : nullptr;
}

ProjectEntryRow ProjectEntryModel::row(int row) const {
    const TimeEntry* const found = entry(row);
    return found ? projectEntryRow(*found, project()->hourlyRate, m_calendar, m_clock.now())
                 : ProjectEntryRow{};
}

std::optional<Uuid> ProjectEntryModel::idAt(int row) const {
    const TimeEntry* const found = entry(row);
    return found ? std::optional(found->id) : std::nullopt;
}

QVariant ProjectEntryModel::data(const QModelIndex& index, int role) const {
    const TimeEntry* const found = entry(index.row());
    if (!found)
        return {};
    if (role == Qt::DisplayRole)
        return screenText(found->taskName);
    if (role == Qt::AccessibleTextRole)
        return spoken(row(index.row()));
    return {};
}

} // namespace brisklog
