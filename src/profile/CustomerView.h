#pragma once

#include "core/TimeTrackingStore.h"

#include <optional>

namespace brisklog {

/// The state of the customer list: which form is open over it.
class CustomerView final : public ObservableObject {
public:
    explicit CustomerView(TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// Whether the form for a new customer is shown.
    Published<bool> showingNewCustomerSheet{*this, false};
    /// The customer whose form is shown.
    Published<std::optional<Customer>> editingCustomer{*this};

    [[nodiscard]] bool hasCustomers() const { return !m_timeStore.customers->empty(); }

    [[nodiscard]] bool isFormShown() const { return showingNewCustomerSheet || editingCustomer->has_value(); }

    void createCustomer() { showingNewCustomerSheet = true; }

    /// Opens the form of the customer with that id; nothing happens when there is none.
    void editCustomer(const Uuid& id);

    /// Call when the form has closed, for whatever reason.
    void formClosed();

private:
    TimeTrackingStore& m_timeStore;
};

} // namespace brisklog
