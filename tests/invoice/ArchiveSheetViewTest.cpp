#include "invoice/ArchiveSheetView.h"

#include "invoice/InvoiceSheet.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using Texts = std::vector<std::string>;

/// 31 December 2023, 23:30:00 UTC.
constexpr Date newYearsEve{725758200};

class Archive : public testing::Test, protected InvoiceSheet {
protected:
    Archive() : InvoiceSheet({entryOf("Eins", hour), entryOf("Zwei", 2 * hour, 80.0)}, 60.0) {}

    void issue(const std::string& number, Date date, const std::vector<Uuid>& ids = {}) {
        clock.set(date);
        store.addArchivedInvoice(number, std::nullopt, ids);
        files.written.clear();
    }

    [[nodiscard]] Texts titles() const {
        Texts titles;
        for (const ArchiveGroup& group : archive.groups())
            titles.push_back(group.title);
        return titles;
    }

    static Texts numbers(const std::vector<ArchivedInvoice>& invoices) {
        Texts numbers;
        for (const ArchivedInvoice& invoice : invoices)
            numbers.push_back(invoice.invoiceNumber);
        return numbers;
    }

    [[nodiscard]] const ArchivedInvoice& last() const { return store.archivedInvoices->back(); }

    [[nodiscard]] Texts coveredBy(const ArchivedInvoice& invoice) const {
        Texts names;
        for (const EntryInfo& info : archive.entryInfosFor(invoice))
            names.push_back(info.project->name + "/" + info.entry->taskName);
        return names;
    }

    [[nodiscard]] Uuid entryId(std::size_t entry) const { return projectEntries().at(entry).id; }

    ArchiveSheetView archive{store, clock};
};

TEST_F(Archive, isEmptyUntilAnInvoiceIsIssued) {
    EXPECT_TRUE(archive.isEmpty());
    EXPECT_TRUE(archive.groups().empty());
    issue("1", newYearsEve);
    EXPECT_FALSE(archive.isEmpty());
}

TEST_F(Archive, listsJanuaryBeforeTheDecemberThatCameEarlier) {
    issue("alt", newYearsEve);
    issue("neu", newYearsEve.addingSeconds(hour));
    EXPECT_EQ(titles(), (Texts{"Januar 2024", "Dezember 2023"}));
    EXPECT_EQ(archive.groups()[0].key, "2024-01");
    EXPECT_EQ(numbers(archive.groups()[0].invoices), Texts{"neu"});
}

TEST_F(Archive, ordersMonthsByDateWhateverTheOrderOfTheFile) {
    for (const double days : {0.0, 400.0, -3000.0, 60.0, 30.0})
        issue("1", newYearsEve.addingSeconds(days * fullDay));
    EXPECT_EQ(titles(),
              (Texts{"Februar 2025", "Februar 2024", "Januar 2024", "Dezember 2023", "Oktober 2015"}));
}

TEST_F(Archive, groupsAMonthInTheStoresOrderAndListsItsNewestFirst) {
    for (const char* const number : {"1", "2", "3"})
        issue(number, newYearsEve);
    EXPECT_EQ(numbers(archive.groupedInvoices().at("2023-12")), (Texts{"1", "2", "3"}));
    EXPECT_EQ(numbers(archive.groups().at(0).invoices), (Texts{"3", "2", "1"}));
}

TEST_F(Archive, theMonthIsThatOfTheUsersZone) {
    issue("1", newYearsEve);
    EXPECT_EQ(archive.groups().at(0).title, "Dezember 2023");
    clock.setZone("Europe/Berlin");
    EXPECT_EQ(archive.groups().at(0).key, "2024-01");
    EXPECT_EQ(archive.groups().at(0).title, "Januar 2024");
    EXPECT_EQ(archive.details(last()).date, "01.01.2024");
}

TEST_F(Archive, aDateOutsideEveryCalendarHasAGroupOfItsOwnAtTheEnd) {
    issue("neu", newYearsEve);
    issue("ohne Zeit", Date{1e300});
    EXPECT_EQ(titles(), (Texts{"Dezember 2023", "0000-00"}));
}

TEST_F(Archive, sumsTimeAndAmountOverTheCoveredEntriesAtTheirRates) {
    issue("1", newYearsEve, {entryId(0), entryId(1)});
    EXPECT_EQ(archive.details(last()), (ArchiveDetails{"31.12.2023", "3\u00A0h", "220,00\u00A0€"}));
}

TEST_F(Archive, coversOnlyTheEntriesOfTheInvoice) {
    issue("1", newYearsEve, {entryId(1)});
    EXPECT_EQ(coveredBy(last()), Texts{"Website/Zwei"});
    EXPECT_EQ(archive.details(last()), (ArchiveDetails{"31.12.2023", "2\u00A0h", "160,00\u00A0€"}));
}

TEST_F(Archive, findsAnEntryThatLiesInAnotherProjectByNow) {
    issue("1", newYearsEve, {entryId(0), entryId(1)});
    const TimeEntry moved = projectEntries().at(0);
    store.deleteEntry(store.projects->front().id, moved.id);
    store.addProject("Wartung", 100);
    store.addManualEntry(store.projects->back().id, moved);
    EXPECT_EQ(coveredBy(last()), (Texts{"Website/Zwei", "Wartung/Eins"}));
    EXPECT_EQ(archive.details(last()).amount, "260,00\u00A0€");
}

TEST_F(Archive, anInvoiceWhoseEntriesAreGoneStillShowsAndListsNone) {
    issue("1", newYearsEve, {entryId(0), entryId(1)});
    store.resetProject(0);
    EXPECT_EQ(titles(), Texts{"Dezember 2023"});
    EXPECT_TRUE(archive.entryInfosFor(last()).empty());
    EXPECT_EQ(archive.details(last()), (ArchiveDetails{"31.12.2023", "--", "--"}));
}

TEST_F(Archive, sumsWhatIsLeftWhenSomeEntriesAreGone) {
    issue("1", newYearsEve, {entryId(0), entryId(1)});
    store.deleteEntry(store.projects->front().id, entryId(0));
    EXPECT_EQ(archive.details(last()).time, "2\u00A0h");
}

TEST_F(Archive, entriesWithoutAnyRateEarnNothing) {
    store.updateProject(0, "Website", std::nullopt);
    issue("1", newYearsEve, {entryId(0)});
    EXPECT_EQ(archive.details(last()).amount, "0,00\u00A0€");
}

TEST_F(Archive, anIdNamedTwiceCountsOnce) {
    issue("1", newYearsEve, {entryId(0), entryId(0), Uuid::generate()});
    EXPECT_EQ(coveredBy(last()), Texts{"Website/Eins"});
}

TEST_F(Archive, entriesThatShareAnIdAreAllCovered) {
    TimeEntry twin = projectEntries().at(0);
    twin.taskName = "Doppelt";
    store.addManualEntry(store.projects->front().id, twin);
    issue("1", newYearsEve, {twin.id});
    EXPECT_EQ(coveredBy(last()), (Texts{"Website/Eins", "Website/Doppelt"}));
}

TEST_F(Archive, anUnfinishedEntryCountsUpToThePresent) {
    const TimeEntry running = entryOf("Läuft", std::nullopt);
    store.addManualEntry(store.projects->front().id, running);
    issue("1", running.startTime.addingSeconds(hour), {running.id});
    EXPECT_EQ(archive.details(last()).time, "1\u00A0h");
    clock.advance(hour);
    EXPECT_EQ(archive.details(last()).time, "2\u00A0h");
}

TEST_F(Archive, namesWhatIsMissing) {
    issue("", newYearsEve);
    EXPECT_EQ(archiveNumber(last()), "Ohne Nummer");
    EXPECT_EQ(archiveCustomer(last()), "Unbekannt");
    store.addArchivedInvoice("2026-041", "Müller - Müller GmbH", {});
    EXPECT_EQ(archiveNumber(last()), "2026-041");
    EXPECT_EQ(archiveCustomer(last()), "Müller - Müller GmbH");
}

TEST_F(Archive, opensAndShutsEachInvoiceForItself) {
    issue("1", newYearsEve);
    const Uuid first = last().id;
    issue("2", newYearsEve);
    archive.toggle(first);
    EXPECT_TRUE(archive.isOpen(first));
    EXPECT_FALSE(archive.isOpen(last().id));
    archive.toggle(last().id);
    archive.toggle(first);
    EXPECT_FALSE(archive.isOpen(first));
    EXPECT_TRUE(archive.isOpen(last().id));
}

TEST_F(Archive, deletingLeavesTheEntriesInvoicedAndWritesTheArchiveAlone) {
    store.markEntriesInvoiced(store.projects->front().id, {entryId(0)});
    issue("1", newYearsEve, {entryId(0)});
    const Uuid id = last().id;
    archive.toggle(id);
    archive.deleteInvoice(id);
    EXPECT_TRUE(archive.isEmpty());
    EXPECT_FALSE(archive.isOpen(id));
    EXPECT_EQ(files.written, Texts{"archivedInvoices.json"});
    const TimeTrackingStore reopened = reopenedStore();
    EXPECT_TRUE(reopened.archivedInvoices->empty());
    EXPECT_TRUE(reopened.projects->front().entries.at(0).isInvoiced);
}

TEST_F(Archive, deletingTheLastInvoiceOfAMonthRemovesTheMonth) {
    issue("alt", newYearsEve);
    const Uuid old = last().id;
    issue("neu", newYearsEve.addingSeconds(hour));
    archive.deleteInvoice(old);
    EXPECT_EQ(titles(), Texts{"Januar 2024"});
}

TEST_F(Archive, deletingAnInvoiceThatIsGoneWritesNothing) {
    issue("1", newYearsEve);
    archive.deleteInvoice(Uuid::generate());
    EXPECT_TRUE(files.written.empty());
    EXPECT_EQ(titles().size(), 1U);
}

} // namespace
} // namespace brisklog::test
