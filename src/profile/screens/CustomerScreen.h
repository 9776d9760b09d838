#pragma once

#include "core/TimeTrackingStore.h"
#include "profile/CustomerView.h"
#include "profile/screens/CustomerModel.h"
#include "ui/sheets/Screen.h"

#include <QPointer>
#include <memory>

namespace brisklog {

class RowList;
class NavigationButton;
class SheetWindow;

/// The list of customers that invoices are addressed to. The button for a new one belongs in the sheet's
/// header.
class CustomerScreen final : public Screen {
public:
    explicit CustomerScreen(TimeTrackingStore& timeStore);

    /// "Neuer Kunde".
    [[nodiscard]] NavigationButton& newCustomerButton() const { return *m_newCustomer; }

protected:
    void refresh() override;

private:
    void makeList();
    void refreshRows();
    /// Opens or closes a customer's form, according to the view.
    void refreshForm();
    void editCustomer(const QModelIndex& index);

    TimeTrackingStore& m_timeStore;
    CustomerView m_view;
    CustomerModel m_model;
    NavigationButton* m_newCustomer;
    QWidget* m_noCustomers;
    RowList* m_list;
    QPointer<SheetWindow> m_form;
};

/// The sheet, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeCustomerSheet(TimeTrackingStore& timeStore);

} // namespace brisklog
