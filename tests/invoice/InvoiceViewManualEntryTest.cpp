#include "invoice/InvoiceSheet.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string_view>

namespace brisklog::test {
namespace {

std::optional<double> rateTyped(const std::string& text) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->manualRate = text;
    sheet.view->addManualEntry();
    return sheet.projectEntries().at(0).hourlyRate;
}

TEST(InvoiceManualEntry, isAppendedToTheProjectAndToTheListUnticked) {
    InvoiceSheet sheet({entryOf("Schon da", 60)}, 60.0);
    sheet.view->selectAllEntries();
    sheet.view->manualDate = Date{800000000};
    sheet.view->manualDescription = "Vor-Ort-Termin";
    sheet.view->manualHours = 2;
    sheet.view->manualMinutes = 30;
    sheet.view->manualRate = "85,50";
    sheet.view->addManualEntry();

    const auto reopened = sheet.reopenedStore();
    const Project& project = reopened.projects->front();
    ASSERT_EQ(project.entries.size(), 2U);
    const TimeEntry& entry = project.entries[1];
    EXPECT_EQ(entry.taskName, "Vor-Ort-Termin");
    EXPECT_EQ(entry.startTime, Date{800000000});
    EXPECT_EQ(entry.endTime, Date{800009000});
    EXPECT_EQ(entry.projectId, project.id);
    EXPECT_EQ(entry.hourlyRate, 85.5);
    EXPECT_EQ(entry.note, std::nullopt);
    EXPECT_FALSE(entry.isInvoiced);

    const auto& statuses = sheet.view->entryStatuses.get();
    ASSERT_EQ(statuses.size(), 2U);
    EXPECT_EQ(statuses[1].entry, entry);
    EXPECT_EQ(statuses[1].id, entry.id);
    EXPECT_FALSE(statuses[1].isSelected);
    EXPECT_FALSE(statuses[1].isInvoiced);
    EXPECT_TRUE(statuses[0].isSelected);
}

TEST(InvoiceManualEntry, emptiesTheFieldsButKeepsTheDate) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->manualDate = Date{800000000};
    sheet.view->manualDescription = "Vor-Ort-Termin";
    sheet.view->manualHours = 23;
    sheet.view->manualMinutes = 59;
    sheet.view->manualRate = "85";
    sheet.view->addManualEntry();
    EXPECT_EQ(sheet.view->manualDescription.get(), "");
    EXPECT_EQ(sheet.view->manualRate.get(), "");
    EXPECT_EQ(sheet.view->manualHours.get(), 0);
    EXPECT_EQ(sheet.view->manualMinutes.get(), 0);
    EXPECT_EQ(sheet.view->manualDate.get(), Date{800000000});
}

TEST(InvoiceManualEntry, ofNoLengthEndsWhenItStarts) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->addManualEntry();
    const TimeEntry& entry = sheet.projectEntries().at(0);
    EXPECT_EQ(entry.startTime, sheet.clock.now());
    EXPECT_EQ(entry.endTime, entry.startTime);
    EXPECT_EQ(entry.taskName, "");
}

TEST(InvoiceManualEntry, eachOneHasAnIdOfItsOwn) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->addManualEntry();
    sheet.view->addManualEntry();
    EXPECT_NE(sheet.projectEntries().at(0).id, sheet.projectEntries().at(1).id);
}

TEST(InvoiceManualEntry, readsTheRateWithCommaOrPoint) {
    EXPECT_EQ(rateTyped("85,50"), 85.5);
    EXPECT_EQ(rateTyped("85.50"), 85.5);
    EXPECT_EQ(rateTyped("85"), 85);
}

TEST(InvoiceManualEntry, hasNoRateWhereNoneCanBeRead) {
    EXPECT_EQ(rateTyped(""), std::nullopt);
    EXPECT_EQ(rateTyped("viel"), std::nullopt);
    EXPECT_EQ(rateTyped("1.234,50"), std::nullopt);
    EXPECT_EQ(rateTyped("85 €"), std::nullopt);
}

TEST(InvoiceManualEntry, anEndlessDurationStopsTheProgram) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->manualHours = std::numeric_limits<std::int64_t>::max() / 1800;
    EXPECT_EXIT(sheet.view->addManualEntry(), testing::ExitedWithCode(EXIT_FAILURE),
                "duration of a manual entry out of range");
}

TEST(InvoiceManualEntry, canBeBilledOnceTicked) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->manualHours = 1;
    sheet.view->addManualEntry();
    EXPECT_FALSE(sheet.view->canCreateInvoice());
    sheet.view->toggleEntry(0);
    EXPECT_TRUE(sheet.view->canCreateInvoice());
    sheet.view->createInvoice();
    EXPECT_TRUE(sheet.projectEntries().at(0).isInvoiced);
}

TEST(InvoiceManualEntry, aTypedDurationSetsHoursAndMinutes) {
    InvoiceSheet sheet({}, 60.0);
    EXPECT_TRUE(sheet.view->typeManualDuration("23:59"));
    EXPECT_EQ(sheet.view->manualHours, 23);
    EXPECT_EQ(sheet.view->manualMinutes, 59);
    EXPECT_TRUE(sheet.view->typeManualDuration("1,5"));
    EXPECT_EQ(sheet.view->manualHours, 1);
    EXPECT_EQ(sheet.view->manualMinutes, 30);
}

TEST(InvoiceManualEntry, aTypedDurationOfADayOrMoreChangesNothing) {
    InvoiceSheet sheet({}, 60.0);
    sheet.view->manualHours = 1;
    for (const std::string_view text : {"24:00", "23,995", "abc", ""})
        EXPECT_FALSE(sheet.view->typeManualDuration(text)) << text;
    EXPECT_EQ(sheet.view->manualHours, 1);
    EXPECT_EQ(sheet.view->manualMinutes, 0);
}

} // namespace
} // namespace brisklog::test
