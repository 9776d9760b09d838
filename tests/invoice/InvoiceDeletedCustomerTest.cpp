// How an open invoice sheet treats a chosen customer who has since been deleted.

#include "invoice/InvoiceSheet.h"
#include "support/PdfReader.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// One ticked entry, and a chosen customer whom the tests delete; others may remain.
class InvoiceDeletedCustomer : public testing::Test, protected InvoiceSheet {
protected:
    InvoiceDeletedCustomer() : InvoiceSheet({entryOf("Eins", hour)}, 60.0) {
        addCustomer(gone);
        view->toggleEntry(0);
        view->selectedCustomerId = gone.id;
    }

    /// Expects exactly one document, which names no recipient.
    void expectInvoiceWithoutRecipient() {
        EXPECT_EQ(generatedInvoices(), 1U);
        EXPECT_EQ(log.lines.back(),
                  "Generiere Rechnung mit UpdatedInvoiceTemplate für Projekt: Website, Kunde: keiner");
        const PdfReader document(readFile(home.path() / "Rechnung.pdf"));
        EXPECT_TRUE(document.find("Sehr geehrte Damen und Herren,"));
        EXPECT_FALSE(document.find("Müller"));
    }

    const Customer gone = customerNamed("Müller");
};

TEST_F(InvoiceDeletedCustomer, countsAsNoneSoAnotherMustBeChosen) {
    addCustomer(customerNamed("Adler"));
    EXPECT_TRUE(view->canCreateInvoice());
    store.deleteCustomer(0);
    EXPECT_EQ(view->selectedCustomer(), std::nullopt);
    EXPECT_FALSE(view->canCreateInvoice());
    view->selectedCustomerId = store.customers->front().id;
    EXPECT_TRUE(view->canCreateInvoice());
}

TEST_F(InvoiceDeletedCustomer, needsNoSuccessorWhenNobodyIsLeft) {
    store.deleteCustomer(0);
    ASSERT_TRUE(view->canCreateInvoice());
    view->createInvoice();
    EXPECT_EQ(store.archivedInvoices->front().customerName, std::nullopt);
    savePanel.answer(home.path() / "Rechnung.pdf");
    expectInvoiceWithoutRecipient();
}

TEST_F(InvoiceDeletedCustomer, isLeftOutOfTheDocumentWhenDeletedUnderThePanel) {
    view->createInvoice();
    store.deleteCustomer(0);
    savePanel.answer(home.path() / "Rechnung.pdf");
    expectInvoiceWithoutRecipient();
    EXPECT_EQ(store.archivedInvoices->front().customerName, "Müller");
}

} // namespace
} // namespace brisklog::test
