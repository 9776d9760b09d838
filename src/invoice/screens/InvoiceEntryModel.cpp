#include "invoice/screens/InvoiceEntryModel.h"

#include "ui/lists/RowList.h"
#include "ui/look/Text.h"

#include <QAccessible>

namespace brisklog {

int InvoiceEntryModel::currentCount() const { return static_cast<int>(m_view.entryStatuses->size()); }

bool InvoiceEntryModel::hasRow(const QModelIndex& index) const {
    // The view may have lost rows that the list has not been told about yet.
    return index.isValid() && index.row() < currentCount();
}

InvoiceEntryRowView InvoiceEntryModel::row(const QModelIndex& index) const {
    const auto place = static_cast<std::size_t>(index.row());
    return {.entryStatus = m_view.entryStatuses.get().at(place),
            .hourlyRate = m_view.project().hourlyRate,
            .onToggle = [&view = m_view, place] { view.toggleEntry(place); }};
}

void InvoiceEntryModel::deleteEntry(const QModelIndex& index) {
    if (!hasRow(index))
        return;
    synchronise();
    beginRemoveRows({}, index.row(), index.row());
    m_view.deleteEntry(static_cast<std::size_t>(index.row()));
    --m_count;
    m_revision = m_view.entryStatuses.revision();
    endRemoveRows();
}

void InvoiceEntryModel::synchronise() {
    m_calendar = m_clock.calendar();
    if (m_revision == m_view.entryStatuses.revision())
        return;
    m_revision = m_view.entryStatuses.revision();
    const int count = currentCount();
    if (count < m_count) {
        beginResetModel();
        m_count = count;
        endResetModel();
    } else if (count > m_count) {
        // New entries come last.
        beginInsertRows({}, m_count, count - 1);
        m_count = count;
        endInsertRows();
    }
    if (m_count > 0)
        Q_EMIT dataChanged(index(0), index(m_count - 1));
}

int InvoiceEntryModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_count; }

QVariant InvoiceEntryModel::data(const QModelIndex& index, int role) const {
    if (!hasRow(index))
        return {};
    const InvoiceEntryRowView shown = row(index);
    switch (role) {
    case Qt::DisplayRole:
        return screenText(shown.entryStatus.entry.taskName);
    case Qt::CheckStateRole:
        return shown.entryStatus.isSelected ? Qt::Checked : Qt::Unchecked;
    // Screen readers would not speak the tick of a plain row.
    case RowList::accessibleRole:
        return QAccessible::CheckBox;
    case Qt::AccessibleTextRole:
        return screenText(shown.spokenText(m_calendar, now()));
    case Qt::AccessibleDescriptionRole:
        return screenText(shown.remark());
    default:
        return {};
    }
}

bool InvoiceEntryModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !hasRow(index))
        return false;
    const InvoiceEntryRowView shown = row(index);
    if (shown.entryStatus.isSelected != (value.toInt() == Qt::Checked))
        shown.onToggle();
    return true;
}

Qt::ItemFlags InvoiceEntryModel::flags(const QModelIndex& index) const {
    return index.isValid()
               ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren
               : Qt::NoItemFlags;
}

} // namespace brisklog
