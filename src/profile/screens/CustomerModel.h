#pragma once

#include "core/TimeTrackingStore.h"
#include "profile/CustomerRowView.h"

#include <QAbstractListModel>
#include <optional>

namespace brisklog {

/// The store's customers for a list view.
class CustomerModel final : public QAbstractListModel {
public:
    explicit CustomerModel(const TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// What the row shows; an empty row for one that is gone.
    [[nodiscard]] CustomerRowView row(const QModelIndex& index) const;

    /// Tells the list that the customers changed since the last call, if they did.
    void synchronise();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const TimeTrackingStore& m_timeStore;
    int m_count = 0;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
