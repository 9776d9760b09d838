#include "foundation/GermanFormat.h"
#include "invoice/InvoiceSheet.h"
#include "support/PdfReader.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

/// A sheet over two entries with the first one ticked.
struct Billing : InvoiceSheet {
    Billing() : InvoiceSheet({entryOf("Abgerechnet", hour), entryOf("Später", hour)}, 60.0) {
        view->toggleEntry(0);
        view->invoiceNumber = "2026-041";
    }

    [[nodiscard]] Uuid billedId() const { return projectEntries()[0].id; }

    [[nodiscard]] fs::path target() const { return home.path() / "Rechnung.pdf"; }

    /// The document written to `target()`.
    [[nodiscard]] std::unique_ptr<PdfReader> document() const {
        return std::make_unique<PdfReader>(readFile(target()));
    }
};

TEST(InvoiceCreation, needsATickedEntry) {
    InvoiceSheet sheet({entryOf("Eins", hour)}, 60.0);
    EXPECT_FALSE(sheet.view->canCreateInvoice());
    sheet.view->toggleEntry(0);
    EXPECT_TRUE(sheet.view->canCreateInvoice());
}

TEST(InvoiceCreation, needsACustomerOnceThereIsOneToChoose) {
    Billing sheet;
    const Customer customer = customerNamed("Müller");
    sheet.addCustomer(customer);
    EXPECT_FALSE(sheet.view->canCreateInvoice());
    sheet.view->selectedCustomerId = customer.id;
    EXPECT_TRUE(sheet.view->canCreateInvoice());
    sheet.view->deselectAllEntries();
    EXPECT_FALSE(sheet.view->canCreateInvoice());
}

TEST(InvoiceCreation, saysWhatItStillNeeds) {
    Billing sheet;
    const Customer customer = customerNamed("Müller");
    sheet.addCustomer(customer);
    EXPECT_EQ(sheet.view->missingForInvoice(), "Bitte zuerst einen Kunden auswählen.");
    sheet.view->deselectAllEntries();
    EXPECT_EQ(sheet.view->missingForInvoice(),
              "Bitte zuerst einen Kunden und mindestens einen Eintrag auswählen.");
    sheet.view->selectedCustomerId = customer.id;
    EXPECT_EQ(sheet.view->missingForInvoice(), "Bitte zuerst mindestens einen Eintrag auswählen.");
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->missingForInvoice(), "");
}

TEST(InvoiceCreation, isSaidToScreenReaders) {
    Billing sheet;
    std::vector<std::string> said;
    sheet.view->announce = [&said](const std::string& text) { said.push_back(text); };
    sheet.view->createInvoice();
    sheet.view->invoiceNumber = "";
    sheet.view->createInvoice();
    EXPECT_EQ(said, (std::vector<std::string>{"Rechnung 2026-041 erstellt", "Rechnung erstellt"}));
}

TEST(InvoiceCreation, marksTheTickedEntriesInStoreAndSheet) {
    Billing sheet;
    sheet.view->createInvoice();
    const auto reopened = sheet.reopenedStore();
    EXPECT_TRUE(reopened.projects->front().entries[0].isInvoiced);
    EXPECT_FALSE(reopened.projects->front().entries[1].isInvoiced);
    const auto& statuses = sheet.view->entryStatuses.get();
    EXPECT_TRUE(statuses[0].isInvoiced);
    EXPECT_TRUE(statuses[0].isSelected);
    EXPECT_FALSE(statuses[1].isInvoiced);
}

TEST(InvoiceCreation, archivesWithoutWaitingForThePanel) {
    Billing sheet;
    const Customer customer = customerNamed("Müller", "Müller GmbH");
    sheet.addCustomer(customer);
    sheet.view->selectedCustomerId = customer.id;
    sheet.view->createInvoice();
    EXPECT_TRUE(sheet.savePanel.isShown());
    EXPECT_EQ(sheet.generatedInvoices(), 0U);
    const auto reopened = sheet.reopenedStore();
    ASSERT_EQ(reopened.archivedInvoices->size(), 1U);
    const ArchivedInvoice& invoice = reopened.archivedInvoices->front();
    EXPECT_EQ(invoice.invoiceNumber, "2026-041");
    EXPECT_EQ(invoice.date, sheet.clock.now());
    EXPECT_EQ(invoice.customerName, "Müller - Müller GmbH");
    EXPECT_EQ(invoice.entryIDs, std::vector{sheet.billedId()});
}

TEST(InvoiceCreation, savesTheEntriesBeforeAndTheArchiveAfterThePanelIsShown) {
    Billing sheet;
    std::vector<std::string> writtenWhenShown;

    class Watching final : public SavePanel {
    public:
        Watching(std::vector<std::string>& seen, const RecordingFiles& files)
            : m_seen(seen), m_files(files) {}

        void present(const SaveRequest&, Completion) override { m_seen = m_files.written; }

    private:
        std::vector<std::string>& m_seen;
        const RecordingFiles& m_files;
    } panel(writtenWhenShown, sheet.files);

    const DocumentFacilities usual = sheet.facilities();
    InvoiceView view(sheet.store, 0,
                     {.pdf = usual.pdf,
                      .clock = usual.clock,
                      .savePanel = panel,
                      .files = usual.files,
                      .log = usual.log,
                      .profile = usual.profile},
                     sheet.notificationCenter);
    view.initializeEntryStatuses();
    view.selectAllEntries();
    view.createInvoice();
    EXPECT_EQ(writtenWhenShown, std::vector<std::string>{"projects.json"});
    EXPECT_EQ(sheet.files.written, (std::vector<std::string>{"projects.json", "archivedInvoices.json"}));
}

TEST(InvoiceCreation, withoutCustomersTheArchiveNamesNobodyAndTheLogKeiner) {
    Billing sheet;
    sheet.view->createInvoice();
    sheet.savePanel.answer(sheet.target());
    EXPECT_EQ(sheet.store.archivedInvoices->front().customerName, std::nullopt);
    EXPECT_EQ(sheet.log.countStartingWith(
                  "Generiere Rechnung mit UpdatedInvoiceTemplate für Projekt: Website, Kunde: keiner"),
              1U);
}

TEST(InvoiceCreation, cancellingThePanelLeavesTheEntriesInvoicedAndOneArchiveRecord) {
    Billing sheet;
    sheet.log.lines.clear();
    sheet.view->createInvoice();
    sheet.savePanel.answer(std::nullopt);
    const auto reopened = sheet.reopenedStore();
    EXPECT_TRUE(reopened.projects->front().entries[0].isInvoiced);
    EXPECT_EQ(reopened.archivedInvoices->size(), 1U);
    EXPECT_EQ(sheet.generatedInvoices(), 0U);
    EXPECT_EQ(sheet.log.countStartingWith("Generiere"), 0U);
    EXPECT_EQ(sheet.log.countStartingWith("Fehler"), 0U);
    EXPECT_FALSE(fs::exists(sheet.target()));
}

TEST(InvoiceCreation, aSecondPressBillsTheSameEntriesAgain) {
    Billing sheet;
    sheet.view->createInvoice();
    sheet.savePanel.answer(sheet.target());
    EXPECT_TRUE(sheet.view->canCreateInvoice());
    sheet.view->createInvoice();
    sheet.savePanel.answer(sheet.target());
    ASSERT_EQ(sheet.store.archivedInvoices->size(), 2U);
    EXPECT_EQ(sheet.store.archivedInvoices.get()[0].entryIDs, sheet.store.archivedInvoices.get()[1].entryIDs);
    EXPECT_NE(sheet.store.archivedInvoices.get()[0].id, sheet.store.archivedInvoices.get()[1].id);
    EXPECT_EQ(sheet.generatedInvoices(), 2U);
}

TEST(InvoiceCreation, anEmptyNumberIsPrintedAndArchivedEmpty) {
    Billing sheet;
    sheet.view->invoiceNumber = "";
    sheet.view->createInvoice();
    sheet.savePanel.answer(sheet.target());
    EXPECT_EQ(sheet.store.archivedInvoices->front().invoiceNumber, "");
    EXPECT_THAT(sheet.document()->copiedText(), testing::HasSubstr("Rechnungsnummer:Rechnungsdatum:"));
}

TEST(InvoiceExport, suggestsProjectAndDayAsFileName) {
    InvoiceSheet sheet({}, std::nullopt, "A/B: Büro \"neu\"");
    sheet.view->exportInvoicePDF();
    ASSERT_EQ(sheet.savePanel.requests.size(), 1U);
    EXPECT_EQ(sheet.savePanel.requests[0].title, "Rechnung als PDF exportieren");
    EXPECT_EQ(sheet.savePanel.requests[0].suggestedName, "Rechnung_A/B: Büro \"neu\"_2026-11-15.pdf");
}

TEST(InvoiceExport, generatesFromTheSheetAsItIsWhenThePanelEnds) {
    Billing sheet;
    const Customer customer = customerNamed("Müller");
    sheet.addCustomer(customer);
    sheet.view->exportInvoicePDF();
    sheet.view->toggleEntry(1);
    sheet.view->selectedCustomerId = customer.id;
    sheet.view->invoiceNumber = "danach";
    sheet.view->additionalNotes = "Zahlbar sofort.";
    sheet.savePanel.answer(sheet.target());
    EXPECT_EQ(sheet.generatedInvoices(), 1U);
    const auto invoice = sheet.document();
    EXPECT_TRUE(invoice->find("Sehr geehrter Herr Müller,"));
    EXPECT_TRUE(invoice->find("Rechnungsnummer: danach"));
    EXPECT_TRUE(invoice->find("Zahlbar sofort."));
    ASSERT_TRUE(invoice->find("Abgerechnet 1 h 0 min 60,00 € 60,00 €"));
    ASSERT_TRUE(invoice->find("Später 1 h 0 min 60,00 € 60,00 €"));
    EXPECT_LT(invoice->find("Abgerechnet")->top, invoice->find("Später")->top);
    EXPECT_TRUE(invoice->find("Gesamtbetrag: 120,00 €"));
    EXPECT_EQ(sheet.log.lines.back(),
              "Generiere Rechnung mit UpdatedInvoiceTemplate für Projekt: Website, Kunde: Müller");
}

TEST(InvoiceExport, finishesWithTheLastStateAfterTheSheetWasClosed) {
    Billing sheet;
    sheet.view->createInvoice();
    sheet.view->additionalNotes = "zuletzt getippt";
    sheet.view.reset();
    sheet.savePanel.answer(sheet.target());
    EXPECT_EQ(sheet.generatedInvoices(), 1U);
    const auto invoice = sheet.document();
    EXPECT_TRUE(invoice->find("Rechnungsnummer: 2026-041"));
    EXPECT_TRUE(invoice->find("zuletzt getippt"));
    EXPECT_TRUE(invoice->find("Abgerechnet"));
    EXPECT_FALSE(invoice->find("Später"));
}

TEST(InvoiceExport, replacesALongerDocumentWhole) {
    Billing sheet;
    writeFile(sheet.target(), std::string(1000000, 'x'));
    sheet.view->exportInvoicePDF();
    sheet.savePanel.answer(sheet.target());
    const std::string written = readFile(sheet.target());
    EXPECT_TRUE(written.starts_with("%PDF-"));
    EXPECT_TRUE(written.ends_with("%%EOF\n"));
    EXPECT_EQ(written.find(std::string(100, 'x')), std::string::npos);
}

TEST(InvoiceExport, givesTheDocumentThePermissionsOfAnyNewFile) {
    ::umask(022);
    Billing sheet;
    sheet.view->exportInvoicePDF();
    sheet.savePanel.answer(sheet.target());
    EXPECT_EQ(fs::status(sheet.target()).permissions(), fs::perms{0644});
}

TEST(InvoiceExport, aFolderThatIsGoneIsAPrintedErrorAndNotCreated) {
    Billing sheet;
    const fs::path folder = sheet.home.path() / "fort";
    sheet.view->createInvoice();
    sheet.savePanel.answer(folder / "Rechnung.pdf");
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_EQ(sheet.log.lines.back(), "Fehler beim Speichern der PDF: " + (folder / "Rechnung.pdf").string() +
                                          ": No such file or directory");
    EXPECT_EQ(sheet.store.archivedInvoices->size(), 1U);
    EXPECT_TRUE(sheet.projectEntries()[0].isInvoiced);
}

} // namespace
} // namespace brisklog::test
