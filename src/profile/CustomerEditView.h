#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// The form that creates or edits a customer. Nothing is saved until it is confirmed; texts are taken exactly
/// as typed, and fields the form does not show are left unchanged.
class CustomerEditView final : public ObservableObject {
    /// The customer as the form would save it. Declared first because the fields write to it.
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
    /// For a new customer: all texts are empty, and the gender is deliberately the neutral one.
    explicit CustomerEditView(TimeTrackingStore& timeStore);
    /// For editing the customer.
    CustomerEditView(TimeTrackingStore& timeStore, const Customer& customer);

    /// Becomes false once the form is done or cancelled; it then closes.
    Published<bool> isPresented{*this, true};

    Field<std::string> firstName{*this, m_customer.firstName};
    /// The surname, the only required text.
    Field<std::string> name{*this, m_customer.name};
    Field<Gender> gender{*this, m_customer.gender};
    Field<std::string> company{*this, m_customer.company};
    Field<std::string> address{*this, m_customer.address};
    Field<std::string> postalCode{*this, m_customer.postalCode};
    Field<std::string> city{*this, m_customer.city};
    Field<std::string> email{*this, m_customer.email};
    Field<std::string> phone{*this, m_customer.phone};
    Field<std::string> taxId{*this, m_customer.taxId};

    /// Whether the user is being asked to confirm deleting the customer.
    Published<bool> showingDeleteAlert{*this, false};

    [[nodiscard]] bool isEditing() const { return m_isEditing; }

    /// "Neuer Kunde" or "Kunde bearbeiten".
    [[nodiscard]] std::string title() const;
    /// The confirm button's caption: "Hinzufügen" or "Aktualisieren".
    [[nodiscard]] std::string confirmCaption() const;

    /// Whether there is a surname; blanks deliberately count.
    [[nodiscard]] bool canSave() const { return !name->empty(); }

    /// What has to be done before the form can be saved, as a sentence; empty when nothing has.
    [[nodiscard]] std::string missing() const;

    /// Appends the new customer, or replaces the edited one in place, and closes.
    void saveCustomer();

    /// Removes the customer and closes; call once the user has confirmed.
    void deleteCustomer();

    void cancel() { isPresented = false; }

private:
    TimeTrackingStore& m_timeStore;
    const bool m_isEditing;
};

} // namespace brisklog
