#include "profile/CustomerEditView.h"

#include <algorithm>

namespace brisklog {

CustomerEditView::CustomerEditView(TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

CustomerEditView::CustomerEditView(TimeTrackingStore& timeStore, const Customer& customer)
    : m_timeStore(timeStore), m_customerId(customer.id) {
    firstName = customer.firstName;
    name = customer.name;
    gender = customer.gender;
    company = customer.company;
    address = customer.address;
    postalCode = customer.postalCode;
    city = customer.city;
    email = customer.email;
    phone = customer.phone;
    taxId = customer.taxId;
}

std::string CustomerEditView::title() const { return isEditing() ? "Kunde bearbeiten" : "Neuer Kunde"; }

std::string CustomerEditView::confirmCaption() const { return isEditing() ? "Aktualisieren" : "Hinzufügen"; }

Customer CustomerEditView::editedCustomer() const {
    return {.id = m_customerId ? *m_customerId : Uuid::generate(),
            .firstName = firstName,
            .name = name,
            .gender = gender,
            .company = company,
            .address = address,
            .postalCode = postalCode,
            .city = city,
            .email = email,
            .phone = phone,
            .taxId = taxId};
}

void CustomerEditView::saveCustomer() {
    if (isEditing()) {
        m_timeStore.updateCustomer(editedCustomer());
    } else {
        m_timeStore.customers.mutate(
            [this](std::vector<Customer>& customers) { customers.push_back(editedCustomer()); });
        m_timeStore.saveCustomers();
    }
    isPresented = false;
}

void CustomerEditView::deleteCustomer() {
    showingDeleteAlert = false;
    const std::vector<Customer>& customers = m_timeStore.customers;
    const auto found =
        std::ranges::find_if(customers, [this](const Customer& c) { return c.id == m_customerId; });
    if (found != customers.end())
        m_timeStore.deleteCustomer(static_cast<int>(found - customers.begin()));
    isPresented = false;
}

} // namespace brisklog
