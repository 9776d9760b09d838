#include "invoice/InvoiceEntryRowView.h"

#include "invoice/InvoiceSheet.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr Date now{816426000};

InvoiceEntryStatus rowOf(const TimeEntry& entry) {
    return {.id = entry.id, .entry = entry, .isSelected = false, .isInvoiced = false};
}

TEST(InvoiceEntryRowView, showsDayDurationAndEarnings) {
    const Calendar calendar(QTimeZone("Europe/Berlin"));
    const InvoiceEntryStatus status = rowOf(entryOf("Komponenten", 90 * 60));
    const InvoiceEntryRowView row{status, 80, {}};
    EXPECT_EQ(row.date(calendar), "12.11.26");
    EXPECT_EQ(row.duration(now), "1\u00A0h 30\u00A0min");
    EXPECT_EQ(row.amount(now), "120,00\u00A0€");
    EXPECT_EQ(row.remark(), "");
    EXPECT_EQ(row.spokenText(calendar, now), "12.11.26, Komponenten, 1\u00A0h 30\u00A0min, 120,00\u00A0€");
}

TEST(InvoiceEntryRowView, showsTheEntrysOwnRateEvenInAProjectWithoutOne) {
    const InvoiceEntryStatus own = rowOf(entryOf("Eigener", 3600, 95.5));
    const InvoiceEntryStatus none = rowOf(entryOf("Keiner", 3600));
    EXPECT_EQ((InvoiceEntryRowView{own, std::nullopt, {}}.amount(now)), "95,50\u00A0€");
    EXPECT_EQ((InvoiceEntryRowView{own, 60, {}}.amount(now)), "95,50\u00A0€");
    EXPECT_EQ((InvoiceEntryRowView{none, std::nullopt, {}}.amount(now)), "--");
}

TEST(InvoiceEntryRowView, anUnfinishedEntryCountsUpToNow) {
    const InvoiceEntryStatus status = rowOf(entryOf("Läuft", std::nullopt));
    const InvoiceEntryRowView row{status, 60, {}};
    EXPECT_EQ(row.duration(status.entry.startTime.addingSeconds(5400)), "1\u00A0h 30\u00A0min");
    EXPECT_EQ(row.amount(status.entry.startTime.addingSeconds(5400)), "90,00\u00A0€");
}

TEST(InvoiceEntryRowView, aDurationThatIsNoFigureFallsBack) {
    const InvoiceEntryStatus status = rowOf(entryOf("Ewig", 1e300));
    EXPECT_EQ((InvoiceEntryRowView{status, std::nullopt, {}}.duration(now)), "0h 0m");
}

TEST(InvoiceEntryRowView, anInvoicedRowLooksInvoicedEvenWhenTicked) {
    InvoiceEntryStatus status = rowOf(entryOf("Alt", 3600));
    const InvoiceEntryRowView row{status, std::nullopt, {}};
    EXPECT_EQ(row.ground(), InvoiceEntryRowView::Ground::plain);
    status.isSelected = true;
    EXPECT_EQ(row.ground(), InvoiceEntryRowView::Ground::selected);
    status.isInvoiced = true;
    EXPECT_EQ(row.ground(), InvoiceEntryRowView::Ground::invoiced);
    EXPECT_EQ(row.remark(), "Bereits abgerechnet");
}

} // namespace
} // namespace brisklog::test
