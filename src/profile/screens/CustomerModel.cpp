#include "profile/screens/CustomerModel.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace brisklog {
namespace {

/// How many customers two lists share at their beginnings and, behind those, at their ends.
struct Common {
    int before;
    int behind;
};

template <class Rows>
Common commonRows(const Rows& one, const Rows& other) {
    const auto isSame = [](const auto& a, const auto& b) { return a.id == b.id; };
    const auto first = std::mismatch(one.begin(), one.end(), other.begin(), other.end(), isSame);
    const auto last = std::mismatch(one.rbegin(), std::make_reverse_iterator(first.first), other.rbegin(),
                                    std::make_reverse_iterator(first.second), isSame);
    return {static_cast<int>(first.first - one.begin()), static_cast<int>(last.first - one.rbegin())};
}

} // namespace

const CustomerRowView& CustomerModel::row(const QModelIndex& index) const {
    return m_rows.at(static_cast<std::size_t>(index.row())).shown;
}

const Uuid& CustomerModel::customerId(const QModelIndex& index) const {
    return m_rows.at(static_cast<std::size_t>(index.row())).id;
}

CustomerModel::Rows CustomerModel::currentRows() const {
    Rows rows;
    rows.reserve(m_timeStore.customers->size());
    for (const Customer& customer : m_timeStore.customers.get())
        rows.push_back({customer.id, CustomerRowView(customer)});
    return rows;
}

void CustomerModel::synchronise() {
    if (m_revision == m_timeStore.customers.revision())
        return;
    m_revision = m_timeStore.customers.revision();
    take(currentRows());
}

void CustomerModel::take(Rows rows) {
    const auto before = static_cast<int>(m_rows.size());
    const auto now = static_cast<int>(rows.size());
    const Common common = commonRows(m_rows, rows);
    if (common.before + common.behind != std::min(before, now))
        return replaceAll(std::move(rows));
    // A customer who stayed may have more or fewer lines than before.
    Q_EMIT layoutAboutToBeChanged();
    const int changed = common.before + std::abs(now - before) - 1;
    if (now > before)
        beginInsertRows({}, common.before, changed);
    else if (now < before)
        beginRemoveRows({}, common.before, changed);
    m_rows = std::move(rows);
    if (now > before)
        endInsertRows();
    else if (now < before)
        endRemoveRows();
    Q_EMIT layoutChanged();
}

void CustomerModel::replaceAll(Rows rows) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int CustomerModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant CustomerModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromStdString(row(index).headline);
    if (role == Qt::AccessibleTextRole)
        return QString::fromStdString(row(index).spokenText());
    return {};
}

} // namespace brisklog
