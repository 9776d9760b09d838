#include "invoice/InvoiceView.h"

#include "invoice/InvoiceSheet.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr TimeInterval minute = 60;

TEST(InvoiceView, takesTheProjectsEntriesInTheirOrderUnticked) {
    TimeEntry invoiced = entryOf("Alt", hour);
    invoiced.isInvoiced = true;
    InvoiceSheet sheet({entryOf("Neu", hour), invoiced}, 60.0);
    const auto& statuses = sheet.view->entryStatuses.get();
    ASSERT_EQ(statuses.size(), 2U);
    EXPECT_EQ(statuses[0].entry, sheet.projectEntries()[0]);
    EXPECT_EQ(statuses[0].id, statuses[0].entry.id);
    EXPECT_FALSE(statuses[0].isInvoiced);
    EXPECT_TRUE(statuses[1].isInvoiced);
    EXPECT_TRUE(sheet.view->selectedEntries().empty());
}

TEST(InvoiceView, startsWithEverythingEmptyAndTheManualDateNow) {
    InvoiceSheet sheet({}, std::nullopt);
    const InvoiceView& view = *sheet.view;
    EXPECT_EQ(view.selectedCustomerId.get(), std::nullopt);
    EXPECT_EQ(view.invoiceNumber.get(), "");
    EXPECT_EQ(view.additionalNotes.get(), "");
    EXPECT_FALSE(view.showingSaveNoteSheet.get());
    EXPECT_EQ(view.selectedNoteId.get(), std::nullopt);
    EXPECT_EQ(view.manualDate.get(), sheet.clock.now());
    EXPECT_EQ(view.manualHours.get(), 0);
    EXPECT_EQ(view.manualMinutes.get(), 0);
    EXPECT_EQ(view.manualRate.get(), "");
    EXPECT_TRUE(view.entryStatuses->empty());
    EXPECT_EQ(view.title(), "Rechnung erstellen: Website");
}

TEST(InvoiceView, showingItAgainKeepsTheTicksAndTakesNewEntries) {
    InvoiceSheet sheet({entryOf("Eins", hour), entryOf("Zwei", hour)}, 60.0);
    sheet.view->toggleEntry(1);
    sheet.store.addManualEntry(sheet.store.projects->front().id, entryOf("Drei", hour));
    sheet.view->initializeEntryStatuses();
    const auto& statuses = sheet.view->entryStatuses.get();
    ASSERT_EQ(statuses.size(), 3U);
    EXPECT_FALSE(statuses[0].isSelected);
    EXPECT_TRUE(statuses[1].isSelected);
    EXPECT_FALSE(statuses[2].isSelected);
}

TEST(InvoiceView, showingItAgainForgetsTheTickOfAnEntryThatIsGone) {
    InvoiceSheet sheet({entryOf("Eins", hour), entryOf("Zwei", hour)}, 60.0);
    sheet.view->selectAllEntries();
    sheet.store.deleteEntry(sheet.store.projects->front().id, sheet.projectEntries()[0].id);
    sheet.view->initializeEntryStatuses();
    ASSERT_EQ(sheet.view->selectedEntries().size(), 1U);
    EXPECT_EQ(sheet.view->selectedEntries()[0].entry.taskName, "Zwei");
}

TEST(InvoiceView, togglingARowTwiceLeavesItAsItWas) {
    InvoiceSheet sheet({entryOf("Eins", hour), entryOf("Zwei", hour)}, 60.0);
    sheet.view->toggleEntry(0);
    ASSERT_EQ(sheet.view->selectedEntries().size(), 1U);
    EXPECT_EQ(sheet.view->selectedEntries()[0].entry.taskName, "Eins");
    sheet.view->toggleEntry(0);
    EXPECT_TRUE(sheet.view->selectedEntries().empty());
}

TEST(InvoiceView, aRowThatDoesNotExistIsNeitherToggledNorDeleted) {
    InvoiceSheet sheet({entryOf("Eins", hour)}, 60.0);
    sheet.view->toggleEntry(1);
    sheet.view->deleteEntry(1);
    EXPECT_EQ(sheet.view->entryStatuses->size(), 1U);
    EXPECT_TRUE(sheet.view->selectedEntries().empty());
    EXPECT_TRUE(sheet.files.written.empty());
}

TEST(InvoiceView, selectingAllTicksRowsAlreadyInvoicedToo) {
    TimeEntry invoiced = entryOf("Alt", hour);
    invoiced.isInvoiced = true;
    InvoiceSheet sheet({invoiced, entryOf("Neu", hour)}, 60.0);
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->selectedEntries().size(), 2U);
    sheet.view->deselectAllEntries();
    EXPECT_TRUE(sheet.view->selectedEntries().empty());
    EXPECT_TRUE(sheet.view->entryStatuses.get()[0].isInvoiced);
}

TEST(InvoiceView, addsUpTheTickedRowsAtTheirOwnRateFirst) {
    InvoiceSheet sheet({entryOf("Projektsatz", hour), entryOf("Eigener", 30 * minute, 100.0),
                        entryOf("Nicht dabei", 5 * hour)},
                       60.0);
    sheet.view->toggleEntry(0);
    sheet.view->toggleEntry(1);
    EXPECT_EQ(sheet.view->totalTime(), 90 * minute);
    EXPECT_EQ(sheet.view->totalAmount(), 110);
    const InvoiceSummary summary = sheet.view->summary();
    EXPECT_EQ(summary.entryCount, "2");
    EXPECT_EQ(summary.totalTime, "1\u00A0h 30\u00A0min");
    EXPECT_EQ(summary.totalAmount, "110.00 €");
}

TEST(InvoiceView, sumsUpInShort) {
    InvoiceSheet sheet({entryOf("Eins", hour), entryOf("Zwei", 2 * hour)}, 57.0);
    EXPECT_EQ(sheet.view->summary().inShort(), "0 Einträge · 0.00 €");
    sheet.view->toggleEntry(0);
    EXPECT_EQ(sheet.view->summary().inShort(), "1 Eintrag · 57.00 €");
    sheet.view->toggleEntry(1);
    EXPECT_EQ(sheet.view->summary().inShort(), "2 Einträge · 171.00 €");
}

TEST(InvoiceView, countsAnUnfinishedEntryUpToNow) {
    InvoiceSheet sheet({entryOf("Läuft", std::nullopt)}, 60.0);
    sheet.clock.set(sheet.projectEntries()[0].startTime.addingSeconds(2 * hour));
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->totalTime(), 2 * hour);
    sheet.clock.advance(hour);
    EXPECT_EQ(sheet.view->totalTime(), 3 * hour);
    EXPECT_EQ(sheet.view->summary().totalAmount, "180.00 €");
}

TEST(InvoiceView, billsExactSecondsWhateverTheirDisplayCutsOff) {
    InvoiceSheet sheet({entryOf("Krumm", 61 * minute + 59)}, 3600.0);
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->totalAmount(), 61 * minute + 59);
    EXPECT_EQ(sheet.view->summary().totalTime, "1\u00A0h 1\u00A0min");
    EXPECT_EQ(sheet.view->summary().totalAmount, "3719.00 €");
}

TEST(InvoiceView, ignoresStoredRoundingChoices) {
    InvoiceSheet sheet({entryOf("Eine Stunde eins", 61 * minute)}, 60.0);
    const auto bill = [&sheet](std::string_view settings) {
        writeFile(sheet.home.documents() / "app_settings.json", settings);
        InvoiceView view(sheet.store, 0, sheet.facilities(), sheet.notificationCenter);
        view.initializeEntryStatuses();
        view.selectAllEntries();
        return view.totalAmount();
    };
    EXPECT_EQ(bill(R"({"timeRounding": "15 Minuten", "invoiceRounding": "Aufrunden"})"), 61);
    EXPECT_EQ(bill(R"({"timeRounding": "Keine Rundung", "invoiceRounding": "Exakte Zeiten"})"), 61);
}

TEST(InvoiceView, showsNoAmountWhenTheProjectHasNoRate) {
    InvoiceSheet sheet({entryOf("Eigener Satz", hour, 80.0)}, std::nullopt);
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->summary().totalAmount, std::nullopt);
    EXPECT_EQ(sheet.view->totalAmount(), 80);
    EXPECT_EQ(sheet.view->summary().inShort(), "1 Eintrag");
}

TEST(InvoiceView, sumsOfNothingAreZero) {
    InvoiceSheet sheet({}, 60.0);
    const InvoiceSummary summary = sheet.view->summary();
    EXPECT_EQ(summary.entryCount, "0");
    EXPECT_EQ(summary.totalTime, "0\u00A0min");
    EXPECT_EQ(summary.totalAmount, "0.00 €");
}

TEST(InvoiceView, aTotalThatIsNoFigureFallsBack) {
    InvoiceSheet sheet({entryOf("Ewig", 1e300)}, 1e300);
    sheet.view->selectAllEntries();
    EXPECT_EQ(sheet.view->summary().totalTime, "0h 0m");
    EXPECT_EQ(sheet.view->summary().totalAmount, "0.00 €");
}

TEST(InvoiceView, deletingARowDeletesTheProjectsEntryAtOnce) {
    InvoiceSheet sheet({entryOf("Weg", hour), entryOf("Bleibt", hour)}, 60.0);
    sheet.view->selectAllEntries();
    sheet.view->deleteEntry(0);
    ASSERT_EQ(sheet.view->entryStatuses->size(), 1U);
    EXPECT_EQ(sheet.view->entryStatuses.get()[0].entry.taskName, "Bleibt");
    EXPECT_TRUE(sheet.view->entryStatuses.get()[0].isSelected);
    const auto after = sheet.reopenedStore();
    ASSERT_EQ(after.projects->front().entries.size(), 1U);
    EXPECT_EQ(after.projects->front().entries[0].taskName, "Bleibt");
}

TEST(InvoiceView, worksOnTheProjectAtItsIndexOnly) {
    InvoiceSheet sheet({entryOf("Erstes", hour)}, 60.0);
    sheet.store.addProject("Zweites", 10.0);
    sheet.store.addManualEntry(sheet.store.projects.get()[1].id, entryOf("Anderes", hour));
    InvoiceView second(sheet.store, 1, sheet.facilities(), sheet.notificationCenter);
    second.initializeEntryStatuses();
    second.selectAllEntries();
    EXPECT_EQ(second.title(), "Rechnung erstellen: Zweites");
    EXPECT_EQ(second.totalAmount(), 10);
    second.deleteEntry(0);
    EXPECT_EQ(sheet.projectEntries().size(), 1U);
    EXPECT_TRUE(sheet.store.projects.get()[1].entries.empty());
}

TEST(InvoiceView, stopsTheProgramForAProjectThatDoesNotExist) {
    InvoiceSheet sheet({}, std::nullopt);
    EXPECT_EXIT(InvoiceView(sheet.store, 1, sheet.facilities(), sheet.notificationCenter),
                testing::ExitedWithCode(EXIT_FAILURE), "invoice sheet without a project: index 1");
    EXPECT_EXIT(InvoiceView(sheet.store, -1, sheet.facilities(), sheet.notificationCenter),
                testing::ExitedWithCode(EXIT_FAILURE), "");
}

TEST(InvoiceView, aChoiceShowsNameAndCompanyAndNoDashWithoutCompany) {
    EXPECT_EQ(customerChoice(customerNamed("Müller", "Müller GmbH")), "Müller - Müller GmbH");
    EXPECT_EQ(customerChoice(customerNamed("Özdemir")), "Özdemir");
}

TEST(InvoiceView, aChosenCustomerThatIsGoneIsNobody) {
    InvoiceSheet sheet({}, std::nullopt);
    const Customer customer = customerNamed("Müller");
    sheet.addCustomer(customer);
    EXPECT_EQ(sheet.view->selectedCustomer(), std::nullopt);
    sheet.view->selectedCustomerId = customer.id;
    EXPECT_EQ(sheet.view->selectedCustomer(), customer);
    sheet.store.deleteCustomer(0);
    EXPECT_EQ(sheet.view->selectedCustomer(), std::nullopt);
}

TEST(InvoiceView, opensTheCustomerScreensOnceTheSheetIsGone) {
    InvoiceSheet sheet({}, std::nullopt);
    std::vector<std::string> events;
    const auto subscription = sheet.notificationCenter.observe(
        "OpenCustomerManagement", [&events] { events.emplace_back("customers"); });
    sheet.view->dismiss = [&] {
        events.emplace_back("dismissed");
        sheet.view.reset();
    };
    sheet.view->openCustomerManagement();
    EXPECT_EQ(events, (std::vector<std::string>{"dismissed", "customers"}));
}

TEST(InvoiceView, twentyFiveThousandRowsAreToggledAndSummedQuickly) {
    std::vector<TimeEntry> entries(25000, entryOf("Aufgabe", hour));
    for (TimeEntry& entry : entries)
        entry.id = Uuid::generate();
    InvoiceSheet sheet(std::move(entries), 60.0);
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t row = 0; row < 100; ++row) {
        sheet.view->toggleEntry(row * 250);
        static_cast<void>(sheet.view->summary());
        static_cast<void>(sheet.view->canCreateInvoice());
    }
    sheet.view->selectAllEntries();
    sheet.view->initializeEntryStatuses();
    const auto took = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(sheet.view->summary().entryCount, "25000");
    // A hundred times what a user triggers at once: only quadratic behaviour takes longer.
    EXPECT_LT(took, std::chrono::seconds(2));
    RecordProperty("milliseconds",
                   static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(took).count()));
}

} // namespace
} // namespace brisklog::test
