#include "profile/screens/CustomerModel.h"

#include <utility>

namespace brisklog {

CustomerRowView CustomerModel::row(const QModelIndex& index) const {
    const std::vector<Customer>& customers = m_timeStore.customers;
    const bool exists = index.isValid() && std::cmp_less(index.row(), customers.size());
    return CustomerRowView(exists ? customers[static_cast<std::size_t>(index.row())] : Customer{});
}

void CustomerModel::synchronise() {
    if (m_revision == m_timeStore.customers.revision())
        return;
    beginResetModel();
    m_revision = m_timeStore.customers.revision();
    m_count = static_cast<int>(m_timeStore.customers->size());
    endResetModel();
}

int CustomerModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_count; }

QVariant CustomerModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole)
        return QString::fromStdString(row(index).headline);
    if (role == Qt::AccessibleTextRole)
        return QString::fromStdString(row(index).spokenText());
    return {};
}

} // namespace brisklog
