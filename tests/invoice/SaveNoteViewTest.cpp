#include "invoice/SaveNoteView.h"

#include "invoice/InvoiceSheet.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// The save-note sheet as the invoice sheet shows it.
struct SaveNote {
    InvoiceSheet sheet{{}, std::nullopt};
    SaveNoteView view{sheet.store, sheet.view->additionalNotes, sheet.view->noteNameToSave,
                      sheet.view->showingSaveNoteSheet};

    SaveNote() {
        sheet.view->additionalNotes = "Zahlbar sofort.";
        sheet.view->beginSavingNote();
    }
};

TEST(SaveNoteView, keepsTheNameAsTypedWithTheNotesAndCloses) {
    SaveNote note;
    note.view.setNoteName("  Sofort ");
    EXPECT_TRUE(note.view.canSave());
    note.view.save();
    EXPECT_FALSE(note.sheet.view->showingSaveNoteSheet.get());
    const auto reopened = note.sheet.reopenedStore();
    ASSERT_EQ(reopened.savedNotes->size(), 1U);
    EXPECT_EQ(reopened.savedNotes->front().name, "  Sofort ");
    EXPECT_EQ(reopened.savedNotes->front().content, "Zahlbar sofort.");
}

TEST(SaveNoteView, aBlankNameCannotBeSaved) {
    SaveNote note;
    for (const char* blank : {"", " ", "\n\t\u00A0"}) {
        note.view.setNoteName(blank);
        EXPECT_FALSE(note.view.canSave());
        note.view.save();
    }
    EXPECT_TRUE(note.sheet.view->showingSaveNoteSheet.get());
    EXPECT_TRUE(note.sheet.store.savedNotes->empty());
}

TEST(SaveNoteView, cancellingKeepsNothing) {
    SaveNote note;
    note.view.setNoteName("Sofort");
    note.view.cancel();
    EXPECT_FALSE(note.sheet.view->showingSaveNoteSheet.get());
    EXPECT_TRUE(note.sheet.store.savedNotes->empty());
    EXPECT_TRUE(note.sheet.files.written.empty());
}

} // namespace
} // namespace brisklog::test
