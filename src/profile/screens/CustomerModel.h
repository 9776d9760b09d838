#pragma once

#include "core/TimeTrackingStore.h"
#include "profile/CustomerRowView.h"

#include <QAbstractListModel>
#include <optional>
#include <vector>

namespace brisklog {

/// The store's customers for a list view, as they were at the last `synchronise`.
class CustomerModel final : public QAbstractListModel {
public:
    explicit CustomerModel(const TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    [[nodiscard]] const CustomerRowView& row(const QModelIndex& index) const;
    [[nodiscard]] const Uuid& customerId(const QModelIndex& index) const;

    /// Tells the list what changed in the customers since the last call. What stayed keeps its place under
    /// the eyes of the reader.
    void synchronise();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row {
        Uuid id;
        CustomerRowView shown;
    };

    using Rows = std::vector<Row>;

    [[nodiscard]] Rows currentRows() const;
    void take(Rows rows);
    void replaceAll(Rows rows);

    const TimeTrackingStore& m_timeStore;
    Rows m_rows;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
