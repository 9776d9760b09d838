#include "profile/CustomerView.h"

#include <algorithm>

namespace brisklog {

void CustomerView::editCustomer(const Uuid& id) {
    const auto found = std::ranges::find(m_timeStore.customers.get(), id, &Customer::id);
    if (found != m_timeStore.customers->end())
        editingCustomer = *found;
}

void CustomerView::formClosed() {
    showingNewCustomerSheet = false;
    editingCustomer = std::nullopt;
}

} // namespace brisklog
