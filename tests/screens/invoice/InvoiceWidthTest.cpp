#include "screens/invoice/InvoiceSheetWindow.h"

namespace brisklog::test {
namespace {

class InvoiceWidth : public ScreenTest {};

TEST_F(InvoiceWidth, fitsAScreenOf512PixelsWithAPanelAtItsSide) {
    for (const bool hasCustomer : {false, true}) {
        InvoiceSheet content({entryOf("Entwurf", hour)}, 60.0);
        if (hasCustomer)
            content.addCustomer(customerNamed("Muster", "Muster GmbH"));
        InvoiceSheetWindow window(content);
        EXPECT_LE(window.page().widget()->minimumSizeHint().width(), 490);
    }
}

TEST_F(InvoiceWidth, leavesTheCustomersPickerItsWholeWidth) {
    InvoiceSheet content({}, std::nullopt);
    content.addCustomer(customerNamed("Muster", "Muster GmbH"));
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.sheet->focusWidget()->width(), 300);
}

} // namespace
} // namespace brisklog::test
