#include "invoice/InvoiceSheet.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(InvoiceNotes, savingAsksForAnEmptyName) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.view->additionalNotes = "Zahlbar sofort.";
    sheet.view->noteNameToSave = "vom letzten Mal";
    sheet.view->beginSavingNote();
    EXPECT_TRUE(sheet.view->showingSaveNoteSheet.get());
    EXPECT_EQ(sheet.view->noteNameToSave.get(), "");
}

TEST(InvoiceNotes, savingBlankNotesDoesNothing) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.view->noteNameToSave = "bleibt";
    for (const char* blank : {"", "  ", "\n\t \r\n", "\u00A0\u2028"}) {
        sheet.view->additionalNotes = blank;
        sheet.view->beginSavingNote();
        EXPECT_FALSE(sheet.view->showingSaveNoteSheet.get());
    }
    EXPECT_EQ(sheet.view->noteNameToSave.get(), "bleibt");
}

TEST(InvoiceNotes, choosingASavedNoteReplacesTheText) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.store.addSavedNote("Skonto", "2 % bei Zahlung\nin 7 Tagen");
    sheet.view->additionalNotes = "vorher";
    const Uuid id = sheet.store.savedNotes->front().id;
    sheet.view->chooseNote(id);
    EXPECT_EQ(sheet.view->additionalNotes.get(), "2 % bei Zahlung\nin 7 Tagen");
    EXPECT_EQ(sheet.view->selectedNoteId.get(), id);
}

TEST(InvoiceNotes, choosingANoteThatIsGoneDoesNothing) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.view->additionalNotes = "vorher";
    sheet.view->chooseNote(Uuid::generate());
    EXPECT_EQ(sheet.view->additionalNotes.get(), "vorher");
    EXPECT_EQ(sheet.view->selectedNoteId.get(), std::nullopt);
}

TEST(InvoiceNotes, deletingTheChosenNoteKeepsTheText) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.store.addSavedNote("Skonto", "2 %");
    sheet.store.addSavedNote("Dank", "Vielen Dank");
    sheet.view->chooseNote(sheet.store.savedNotes->front().id);
    sheet.view->deleteSelectedNote();
    ASSERT_EQ(sheet.reopenedStore().savedNotes->size(), 1U);
    EXPECT_EQ(sheet.store.savedNotes->front().name, "Dank");
    EXPECT_EQ(sheet.view->selectedNoteId.get(), std::nullopt);
    EXPECT_EQ(sheet.view->additionalNotes.get(), "2 %");
}

TEST(InvoiceNotes, deletingWithoutAChosenNoteDeletesNone) {
    InvoiceSheet sheet({}, std::nullopt);
    sheet.store.addSavedNote("Skonto", "2 %");
    sheet.files.written.clear();
    sheet.view->deleteSelectedNote();
    EXPECT_EQ(sheet.store.savedNotes->size(), 1U);
    EXPECT_TRUE(sheet.files.written.empty());
}

} // namespace
} // namespace brisklog::test
