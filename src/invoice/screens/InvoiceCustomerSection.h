#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

#include <optional>

namespace brisklog {

class Label;
class Picker;

/// Chooses the customer the invoice is made out to and shows the address; without customers it leads to the
/// screen that creates them.
class InvoiceCustomerSection final : public Screen {
public:
    InvoiceCustomerSection(TimeTrackingStore& timeStore, InvoiceView& view);

protected:
    void refresh() override;

private:
    [[nodiscard]] QWidget* noCustomers();
    [[nodiscard]] QWidget* customerChoices();
    void choose(int index);
    void refreshChoices();
    [[nodiscard]] int selectedIndex() const;

    TimeTrackingStore& m_timeStore;
    InvoiceView& m_view;
    Picker* m_picker;
    Label* m_address;
    QWidget* m_information;
    QWidget* m_noCustomers;
    QWidget* m_choices;
    /// The revision of the customers the picker shows.
    std::optional<std::uint64_t> m_shownRevision;
};

} // namespace brisklog
