#include "profile/CustomerView.h"

#include <algorithm>

namespace brisklog {
namespace {

/// Street, postal code and city on one line; a postal code alone is deliberately not shown.
std::string place(const Customer& customer) {
    if (customer.address.empty() && customer.city.empty())
        return {};
    const std::string street = customer.address.empty() ? "" : customer.address + ", ";
    return street + customer.postalCode + " " + customer.city;
}

} // namespace

CustomerRowView::CustomerRowView(const Customer& customer)
    : headline(customer.formattedSalutation()), company(customer.company) {
    for (const Detail& detail : {Detail{"location", place(customer)}, Detail{"envelope", customer.email},
                                 Detail{"phone", customer.phone}})
        if (!detail.text.empty())
            details.push_back(detail);
}

std::string CustomerRowView::spokenText() const {
    std::string text = headline;
    const auto append = [&text](const std::string& line) {
        if (!line.empty())
            text += (text.empty() ? "" : ", ") + line;
    };
    append(company);
    for (const Detail& detail : details)
        append(detail.text);
    return text;
}

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
