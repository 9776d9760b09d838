// An open invoice sheet whose chosen customer has been deleted.

#include "screens/invoice/InvoiceSheetWindow.h"
#include "ui/controls/Picker.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoiceDeletedCustomerOnScreen : public ScreenTest {
protected:
    InvoiceDeletedCustomerOnScreen() {
        content.addCustomer(gone);
        content.addCustomer(customerNamed("Adler"));
        window = std::make_unique<InvoiceSheetWindow>(content);
        window->clickRow(0);
        window->view().selectedCustomerId = gone.id;
        settle();
    }

    [[nodiscard]] Picker& picker() { return *findNamed<Picker>(*window->sheet, u"Kunde auswählen"_s); }

    [[nodiscard]] bool canCreate() { return window->button(u"Rechnung erstellen"_s).isEnabled(); }

    const Customer gone = customerNamed("Müller");
    InvoiceSheet content{{entryOf("Eins", 3600)}, 60.0};
    std::unique_ptr<InvoiceSheetWindow> window;
};

TEST_F(InvoiceDeletedCustomerOnScreen, asksForAnotherChoice) {
    ASSERT_EQ(picker().currentText(), u"Müller"_s);
    ASSERT_TRUE(canCreate());
    content.store.deleteCustomer(0);
    settle();
    EXPECT_EQ(picker().currentText(), u"Bitte auswählen"_s);
    EXPECT_EQ(picker().count(), 2);
    EXPECT_EQ(window->label(u"Kundeninformationen:"_s), nullptr);
    EXPECT_FALSE(canCreate());
}

TEST_F(InvoiceDeletedCustomerOnScreen, anotherOneKeepsBeingChosenWhereItsPlaceMoves) {
    window->view().selectedCustomerId = content.store.customers->back().id;
    content.store.deleteCustomer(0);
    settle();
    EXPECT_EQ(picker().currentText(), u"Adler"_s);
    EXPECT_TRUE(canCreate());
}

TEST_F(InvoiceDeletedCustomerOnScreen, withNobodyLeftTheInvoiceNeedsNobody) {
    content.store.deleteCustomer(1);
    content.store.deleteCustomer(0);
    settle();
    EXPECT_NE(window->label(u"Keine Kunden vorhanden. Bitte zuerst Kunden anlegen."_s), nullptr);
    EXPECT_FALSE(picker().isVisible());
    EXPECT_TRUE(canCreate());
}

} // namespace
} // namespace brisklog::test
