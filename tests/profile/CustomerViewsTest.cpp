// The customer list and its form, down to the file.

#include "core/StoreFixture.h"
#include "profile/CustomerEditView.h"
#include "profile/CustomerView.h"
#include "support/WritableStore.h"

namespace brisklog::test {
namespace {

class CustomerViews : public StoreTest {
protected:
    static Customer erika() {
        return {.id = Uuid::generate(),
                .firstName = "Erika",
                .name = "Muster",
                .gender = Gender::female,
                .company = "Muster GmbH",
                .address = "Hauptstraße 1",
                .postalCode = "50667",
                .city = "Köln",
                .email = "erika@muster.example",
                .phone = "+49 221 1",
                .taxId = "DE123"};
    }

    /// Writes the customers as an earlier run would have.
    void keep(const std::vector<Customer>& customers) {
        writable(store->customers) = customers;
        store->saveCustomers();
        files.written.clear();
    }

    /// What the program would find after a restart.
    [[nodiscard]] std::vector<Customer> customersOnDisk() {
        return TimeTrackingStore(platform()).customers.get();
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const Customer& customer : store->customers.get())
            names.push_back(customer.name);
        return names;
    }

    std::unique_ptr<TimeTrackingStore> store = startQuietly();
};

using CustomerViewTest = CustomerViews;
using CustomerEditViewTest = CustomerViews;

TEST_F(CustomerViewTest, startsWithoutAForm) {
    const CustomerView view(*store);
    EXPECT_FALSE(view.showingNewCustomerSheet);
    EXPECT_EQ(view.editingCustomer.get(), std::nullopt);
    EXPECT_FALSE(view.isFormShown());
}

TEST_F(CustomerViewTest, knowsWhetherThereAreCustomers) {
    const CustomerView view(*store);
    EXPECT_FALSE(view.hasCustomers());
    keep({erika()});
    EXPECT_TRUE(view.hasCustomers());
}

TEST_F(CustomerViewTest, theFormForANewCustomerStaysUntilItCloses) {
    CustomerView view(*store);
    view.createCustomer();
    EXPECT_TRUE(view.showingNewCustomerSheet);
    EXPECT_TRUE(view.isFormShown());
    view.formClosed();
    EXPECT_FALSE(view.showingNewCustomerSheet);
    EXPECT_FALSE(view.isFormShown());
}

TEST_F(CustomerViewTest, choosingACustomerEditsThatOneUntilTheFormCloses) {
    const Customer customer = erika();
    keep({customerNamed("Adler"), customer});
    CustomerView view(*store);
    view.editCustomer(customer.id);
    EXPECT_EQ(view.editingCustomer.get(), customer);
    EXPECT_TRUE(view.isFormShown());
    view.formClosed();
    EXPECT_EQ(view.editingCustomer.get(), std::nullopt);
}

TEST_F(CustomerViewTest, aCustomerWhoIsGoneIsNotEdited) {
    keep({customerNamed("Adler")});
    CustomerView view(*store);
    view.editCustomer(Uuid::generate());
    EXPECT_FALSE(view.isFormShown());
}

TEST_F(CustomerEditViewTest, aNewCustomerStartsEmptyAndDivers) {
    const CustomerEditView form(*store);
    EXPECT_FALSE(form.isEditing());
    EXPECT_EQ(form.title(), "Neuer Kunde");
    EXPECT_EQ(form.confirmCaption(), "Hinzufügen");
    EXPECT_EQ(form.gender.get(), Gender::diverse);
    for (const auto* text : {&form.firstName, &form.name, &form.company, &form.address, &form.postalCode,
                             &form.city, &form.email, &form.phone, &form.taxId})
        EXPECT_EQ(text->get(), "");
}

TEST_F(CustomerEditViewTest, anExistingCustomerFillsEveryField) {
    const CustomerEditView form(*store, erika());
    EXPECT_TRUE(form.isEditing());
    EXPECT_EQ(form.title(), "Kunde bearbeiten");
    EXPECT_EQ(form.confirmCaption(), "Aktualisieren");
    EXPECT_EQ(form.firstName.get(), "Erika");
    EXPECT_EQ(form.name.get(), "Muster");
    EXPECT_EQ(form.gender.get(), Gender::female);
    EXPECT_EQ(form.company.get(), "Muster GmbH");
    EXPECT_EQ(form.address.get(), "Hauptstraße 1");
    EXPECT_EQ(form.postalCode.get(), "50667");
    EXPECT_EQ(form.city.get(), "Köln");
    EXPECT_EQ(form.email.get(), "erika@muster.example");
    EXPECT_EQ(form.phone.get(), "+49 221 1");
    EXPECT_EQ(form.taxId.get(), "DE123");
}

TEST_F(CustomerEditViewTest, onlyTheSurnameIsRequiredAndABlankIsEnough) {
    CustomerEditView form(*store);
    form.company = "Muster GmbH";
    form.firstName = "Erika";
    EXPECT_FALSE(form.canSave());
    EXPECT_EQ(form.missing(), "Bitte zuerst den Nachnamen eingeben.");
    form.name = " ";
    EXPECT_TRUE(form.canSave());
    EXPECT_EQ(form.missing(), "");
}

TEST_F(CustomerEditViewTest, aNewCustomerBecomesTheLastOneExactlyAsTyped) {
    keep({customerNamed("Zander"), customerNamed("Adler")});
    CustomerEditView form(*store);
    form.firstName = " Erika ";
    form.name = "Muster  ";
    form.postalCode = "D-50667";
    form.saveCustomer();
    EXPECT_FALSE(form.isPresented);
    EXPECT_EQ(names(), (std::vector<std::string>{"Zander", "Adler", "Muster  "}));
    EXPECT_EQ(files.written, std::vector<std::string>{"customers.json"});
    const Customer added = customersOnDisk().back();
    EXPECT_EQ(added, store->customers->back());
    EXPECT_EQ(added.firstName, " Erika ");
    EXPECT_EQ(added.postalCode, "D-50667");
    EXPECT_EQ(added.gender, Gender::diverse);
}

TEST_F(CustomerEditViewTest, everyNewCustomerHasAnIdentifierOfItsOwn) {
    for (const char* const name : {"Muster", "Muster"}) {
        CustomerEditView form(*store);
        form.name = name;
        form.saveCustomer();
    }
    EXPECT_NE(store->customers.get().at(0).id, store->customers.get().at(1).id);
}

TEST_F(CustomerEditViewTest, editingKeepsIdentifierAndPlace) {
    const Customer before = erika();
    keep({customerNamed("Zander"), before, customerNamed("Adler")});
    CustomerEditView form(*store, before);
    form.name = "Beispiel";
    form.gender = Gender::male;
    form.email = "";
    form.saveCustomer();
    EXPECT_FALSE(form.isPresented);
    Customer expected = before;
    expected.name = "Beispiel";
    expected.gender = Gender::male;
    expected.email = "";
    EXPECT_EQ(customersOnDisk().at(1), expected);
    EXPECT_EQ(names(), (std::vector<std::string>{"Zander", "Beispiel", "Adler"}));
}

TEST_F(CustomerEditViewTest, changingACustomerWhoIsGoneWritesNothing) {
    keep({customerNamed("Adler")});
    CustomerEditView form(*store, erika());
    form.saveCustomer();
    EXPECT_FALSE(form.isPresented);
    EXPECT_TRUE(files.written.empty());
    EXPECT_EQ(names(), std::vector<std::string>{"Adler"});
}

TEST_F(CustomerEditViewTest, cancellingLeavesEverythingOnDiskAsItWas) {
    const Customer before = erika();
    keep({before});
    CustomerEditView form(*store, before);
    form.name = "Beispiel";
    form.cancel();
    EXPECT_FALSE(form.isPresented);
    EXPECT_TRUE(files.written.empty());
    EXPECT_EQ(customersOnDisk(), std::vector<Customer>{before});
}

TEST_F(CustomerEditViewTest, deletingRemovesThatCustomerAlone) {
    const Customer customer = erika();
    keep({customerNamed("Zander"), customer, customerNamed("Adler")});
    CustomerEditView form(*store, customer);
    form.showingDeleteAlert = true;
    form.deleteCustomer();
    EXPECT_FALSE(form.isPresented);
    EXPECT_FALSE(form.showingDeleteAlert);
    EXPECT_EQ(names(), (std::vector<std::string>{"Zander", "Adler"}));
    EXPECT_EQ(customersOnDisk().size(), 2U);
}

TEST_F(CustomerEditViewTest, deletingACustomerWhoIsGoneOnlyCloses) {
    keep({customerNamed("Adler")});
    CustomerEditView form(*store, erika());
    form.deleteCustomer();
    EXPECT_FALSE(form.isPresented);
    EXPECT_TRUE(files.written.empty());
}

TEST_F(CustomerEditViewTest, aWriteThatFailsIsPrintedAndTheCustomerStays) {
    files.writesFail = true;
    CustomerEditView form(*store);
    form.name = "Muster";
    form.saveCustomer();
    EXPECT_FALSE(form.isPresented);
    EXPECT_EQ(names(), std::vector<std::string>{"Muster"});
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Error saving customers: ")) << log.lines[0];
}

} // namespace
} // namespace brisklog::test
