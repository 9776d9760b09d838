#pragma once

#include "core/TimeTrackingStore.h"
#include "profile/CustomerView.h"
#include "ui/lists/RowListModel.h"

#include <optional>

namespace brisklog {

/// A customer in the list, with the texts of the card.
struct CustomerRow {
    Uuid id;
    CustomerRowView shown;

    [[nodiscard]] const Uuid& identity() const { return id; }
};

/// The store's customers for a list view, as of the last `synchronise`.
class CustomerModel final : public RowListModel<CustomerRow> {
public:
    explicit CustomerModel(const TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// Tells the list what changed in the customers since the last call.
    void synchronise();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const TimeTrackingStore& m_timeStore;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
