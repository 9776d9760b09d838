#include "profile/screens/CustomerModel.h"

#include "ui/look/Text.h"

namespace brisklog {

void CustomerModel::synchronise() {
    if (m_revision == m_timeStore.customers.revision())
        return;
    m_revision = m_timeStore.customers.revision();
    std::vector<CustomerRow> rows;
    rows.reserve(m_timeStore.customers->size());
    for (const Customer& customer : m_timeStore.customers.get())
        rows.push_back({customer.id, CustomerRowView(customer)});
    takeRows(std::move(rows));
}

QVariant CustomerModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CustomerRowView& shown = rowAt(index).shown;
    if (role == Qt::DisplayRole)
        return screenText(shown.headline);
    if (role == Qt::AccessibleTextRole)
        return screenText(shown.spokenText());
    return {};
}

} // namespace brisklog
