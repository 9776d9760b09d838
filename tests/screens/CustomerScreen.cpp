#include "profile/screens/CustomerScreen.h"

#include "app/components/SheetWindow.h"
#include "invoice/InvoiceSheet.h"
#include "support/screen/ScreenTest.h"

#include <QLabel>
#include <QListView>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class CustomerScreenTest : public ScreenTest {
protected:
    InvoiceSheet m_content{{}, std::nullopt};

    std::unique_ptr<SheetWindow> show() {
        auto sheet = makeCustomerSheet(m_content.store);
        showActive(*sheet);
        return sheet;
    }

    static bool showsText(SheetWindow& sheet, const QString& text) {
        for (auto* label : sheet.findChildren<QLabel*>())
            if (label->text() == text && label->isVisible())
                return true;
        return false;
    }
};

TEST_F(CustomerScreenTest, withoutCustomersSaysWhatTheyAreFor) {
    const auto sheet = show();
    EXPECT_TRUE(showsText(*sheet, u"Kundenverwaltung"_s));
    EXPECT_TRUE(showsText(*sheet, u"Keine Kunden vorhanden"_s));
    EXPECT_TRUE(showsText(
        *sheet, u"Erstellen Sie Kundenprofile, um diese bei der Rechnungserstellung auszuwählen."_s));
    EXPECT_FALSE(sheet->findChild<QListView*>()->isVisible());
}

TEST_F(CustomerScreenTest, listsCustomersInTheStoresOrder) {
    m_content.addCustomer(customerNamed("Zander"));
    m_content.addCustomer(customerNamed("Adler", "Adler KG"));
    const auto sheet = show();
    auto* list = sheet->findChild<QListView*>();
    EXPECT_TRUE(list->isVisible());
    EXPECT_FALSE(showsText(*sheet, u"Keine Kunden vorhanden"_s));
    ASSERT_EQ(list->model()->rowCount(), 2);
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), u"Herr Zander"_s);
    EXPECT_EQ(list->model()->index(1, 0).data(Qt::AccessibleTextRole).toString(), u"Herr Adler, Adler KG"_s);
}

TEST_F(CustomerScreenTest, followsTheStoreWhileItIsOpen) {
    const auto sheet = show();
    m_content.addCustomer(customerNamed("Adler"));
    settle();
    EXPECT_TRUE(sheet->findChild<QListView*>()->isVisible());
    m_content.store.deleteCustomer(0);
    settle();
    EXPECT_TRUE(showsText(*sheet, u"Keine Kunden vorhanden"_s));
}

TEST_F(CustomerScreenTest, aCustomerWithMoreToSayIsHigher) {
    Customer full = customerNamed("Adler", "Adler KG");
    full.city = "Köln";
    full.email = "post@adler.example";
    full.phone = "0221 1";
    m_content.addCustomer(customerNamed("Zander"));
    m_content.addCustomer(full);
    m_content.addCustomer(customerNamed("Zander"));
    const auto sheet = show();
    auto* list = sheet->findChild<QListView*>();
    const auto heightOf = [list](int row) { return list->visualRect(list->model()->index(row, 0)).height(); };
    EXPECT_GT(heightOf(1), heightOf(0));
    EXPECT_GT(heightOf(1), heightOf(2));
    EXPECT_FALSE(picture(*sheet, 2).isNull());
}

} // namespace
} // namespace brisklog::test
