#pragma once

#include "core/TimeTrackingStore.h"

#include <optional>

namespace brisklog {

/// The list of customers: which form is open over it.
class CustomerView final : public ObservableObject {
public:
    explicit CustomerView(TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// The form for a new customer is shown.
    Published<bool> showingNewCustomerSheet{*this, false};
    /// The customer whose form is shown.
    Published<std::optional<Customer>> editingCustomer{*this};

    [[nodiscard]] bool hasCustomers() const { return !m_timeStore.customers->empty(); }

    [[nodiscard]] bool isFormShown() const { return showingNewCustomerSheet || editingCustomer->has_value(); }

    void createCustomer() { showingNewCustomerSheet = true; }

    /// Opens the form of the customer with that id; nothing happens when there is none.
    void editCustomer(const Uuid& id);

    /// To be called when the form has closed, however that came about.
    void formClosed();

private:
    TimeTrackingStore& m_timeStore;
};

} // namespace brisklog
