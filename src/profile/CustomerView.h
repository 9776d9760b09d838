#pragma once

#include "core/TimeTrackingStore.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// What the customer list shows of one customer, from top to bottom; empty texts take no line. A value,
/// despite its name.
struct CustomerRowView {
    /// A line with a symbol in front.
    struct Detail {
        std::string symbol;
        std::string text;

        bool operator==(const Detail&) const = default;
    };

    /// "Frau Erika Muster".
    std::string headline;
    std::string company;
    /// Place, e-mail, telephone.
    std::vector<Detail> details;

    explicit CustomerRowView(const Customer& customer);

    /// All lines as one text, for screen readers.
    [[nodiscard]] std::string spokenText() const;
};

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
