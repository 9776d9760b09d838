#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// The form that creates a customer or changes one. Nothing is kept before it is confirmed; texts are taken
/// exactly as typed, and what the form does not show stays as it is.
class CustomerEditView final : public ObservableObject {
    /// As the form would save it. It stands first because the fields write to it.
    Customer m_customer;

    /// One of the customer's fields, published.
    template <class T>
    class Field final : public Published<T> {
    public:
        Field(ObservableObject& form, T& place)
            : Published<T>(form, place, [this, &place] { place = this->get(); }) {}

        using Published<T>::operator=;
    };

public:
    /// For a new customer: all texts empty, the gender deliberately the neutral one.
    explicit CustomerEditView(TimeTrackingStore& timeStore);
    /// For changing the customer.
    CustomerEditView(TimeTrackingStore& timeStore, const Customer& customer);

    /// False once the form has done its work or was cancelled: it closes then.
    Published<bool> isPresented{*this, true};

    Field<std::string> firstName{*this, m_customer.firstName};
    /// The surname, the only text that is required.
    Field<std::string> name{*this, m_customer.name};
    Field<Gender> gender{*this, m_customer.gender};
    Field<std::string> company{*this, m_customer.company};
    Field<std::string> address{*this, m_customer.address};
    Field<std::string> postalCode{*this, m_customer.postalCode};
    Field<std::string> city{*this, m_customer.city};
    Field<std::string> email{*this, m_customer.email};
    Field<std::string> phone{*this, m_customer.phone};
    Field<std::string> taxId{*this, m_customer.taxId};

    /// The user is being asked whether to delete the customer.
    Published<bool> showingDeleteAlert{*this, false};

    [[nodiscard]] bool isEditing() const { return m_isEditing; }

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
    TimeTrackingStore& m_timeStore;
    const bool m_isEditing;
};

} // namespace brisklog
