#include "profile/CustomerEditView.h"

#include <algorithm>

namespace brisklog {

CustomerEditView::CustomerEditView(TimeTrackingStore& timeStore)
    : m_timeStore(timeStore), m_isEditing(false) {
    gender = Gender::diverse;
}

CustomerEditView::CustomerEditView(TimeTrackingStore& timeStore, const Customer& customer)
    : m_customer(customer), m_timeStore(timeStore), m_isEditing(true) {}

std::string CustomerEditView::title() const { return isEditing() ? "Kunde bearbeiten" : "Neuer Kunde"; }

std::string CustomerEditView::confirmCaption() const { return isEditing() ? "Aktualisieren" : "Hinzufügen"; }

std::string CustomerEditView::missing() const {
    return canSave() ? "" : "Bitte zuerst den Nachnamen eingeben.";
}

void CustomerEditView::saveCustomer() {
    if (isEditing()) {
        m_timeStore.updateCustomer(m_customer);
    } else {
        m_customer.id = Uuid::generate();
        m_timeStore.addCustomer(m_customer);
    }
    isPresented = false;
}

void CustomerEditView::deleteCustomer() {
    showingDeleteAlert = false;
    const std::vector<Customer>& customers = m_timeStore.customers;
    const auto found = std::ranges::find(customers, m_customer.id, &Customer::id);
    if (found != customers.end())
        m_timeStore.deleteCustomer(static_cast<int>(found - customers.begin()));
    isPresented = false;
}

} // namespace brisklog
