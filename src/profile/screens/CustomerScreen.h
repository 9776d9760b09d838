#pragma once

#include "app/components/Screen.h"
#include "core/TimeTrackingStore.h"
#include "profile/screens/CustomerModel.h"

#include <memory>

namespace brisklog {

class EmptyState;
class ListView;
class SheetWindow;

/// The list of customers that invoices are addressed to.
class CustomerScreen final : public Screen {
public:
    explicit CustomerScreen(TimeTrackingStore& timeStore);

protected:
    void refresh() override;

private:
    TimeTrackingStore& m_timeStore;
    CustomerModel m_model;
    EmptyState* m_noCustomers;
    ListView* m_list;
};

/// The sheet, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeCustomerSheet(TimeTrackingStore& timeStore);

} // namespace brisklog
