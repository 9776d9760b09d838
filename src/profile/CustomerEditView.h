#pragma once

#include "core/TimeTrackingStore.h"

#include <optional>
#include <string>

namespace brisklog {

/// The form that creates a customer or changes one. Nothing is kept before it is confirmed; texts are taken
/// exactly as typed.
class CustomerEditView final : public ObservableObject {
public:
    /// For a new customer: all texts empty, the gender deliberately the neutral one.
    explicit CustomerEditView(TimeTrackingStore& timeStore);
    /// For changing the customer.
    CustomerEditView(TimeTrackingStore& timeStore, const Customer& customer);

    /// False once the form has done its work or was cancelled: it closes then.
    Published<bool> isPresented{*this, true};

    Published<std::string> firstName{*this};
    /// The surname, the only text that is required.
    Published<std::string> name{*this};
    Published<Gender> gender{*this, Gender::diverse};
    Published<std::string> company{*this};
    Published<std::string> address{*this};
    Published<std::string> postalCode{*this};
    Published<std::string> city{*this};
    Published<std::string> email{*this};
    Published<std::string> phone{*this};
    Published<std::string> taxId{*this};

    /// The user is being asked whether to delete the customer.
    Published<bool> showingDeleteAlert{*this, false};

    [[nodiscard]] bool isEditing() const { return m_customerId.has_value(); }

    /// "Neuer Kunde" or "Kunde bearbeiten".
    [[nodiscard]] std::string title() const;
    /// The caption of the button that confirms: "Hinzufügen" or "Aktualisieren".
    [[nodiscard]] std::string confirmCaption() const;

    /// There is a surname; blanks deliberately count.
    [[nodiscard]] bool canSave() const { return !name->empty(); }

    /// Appends the new customer, or replaces the changed one at its place; and closes.
    void saveCustomer();

    /// Removes the customer and closes; to be called once the user has confirmed it.
    void deleteCustomer();

    void cancel() { isPresented = false; }

private:
    [[nodiscard]] Customer editedCustomer() const;

    TimeTrackingStore& m_timeStore;
    /// None while the customer is new.
    const std::optional<Uuid> m_customerId;
};

} // namespace brisklog
