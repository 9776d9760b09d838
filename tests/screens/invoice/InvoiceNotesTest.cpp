#include "screens/invoice/InvoiceSheetWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoiceNotesTest : public ScreenTest {
protected:
    /// The sheet that asks for a note's name; null when it is not shown.
    static SheetWindow* saveNoteSheet(InvoiceSheetWindow& window) {
        for (auto* dialog : window.sheet->findChildren<QDialog*>())
            if (dialog->windowTitle() == u"Notiz speichern"_s && dialog->isVisible())
                return static_cast<SheetWindow*>(dialog);
        return nullptr;
    }

    static QWidget& notes(InvoiceSheetWindow& window) {
        for (auto* widget : window.sheet->findChildren<QWidget*>())
            if (widget->accessibleName() == u"Zusätzliche Hinweise"_s)
                return *widget;
        std::abort();
    }

    static SheetWindow* typeNotesAndSave(InvoiceSheetWindow& window) {
        QTest::keyClicks(&notes(window), u"Zahlbar sofort."_s);
        window.button(u"Speichern"_s).click();
        settle();
        return saveNoteSheet(window);
    }
};

TEST_F(InvoiceNotesTest, whatIsTypedReachesTheInvoice) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    QTest::keyClicks(&notes(window), u"Zahlbar"_s);
    QTest::keyClick(&notes(window), Qt::Key_Return);
    QTest::keyClicks(&notes(window), u"sofort."_s);
    EXPECT_EQ(window.view().additionalNotes.get(), "Zahlbar\nsofort.");
}

TEST_F(InvoiceNotesTest, blankNotesAskForNoName) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    window.button(u"Speichern"_s).click();
    settle();
    EXPECT_EQ(saveNoteSheet(window), nullptr);
}

TEST_F(InvoiceNotesTest, savesUnderTheTypedNameWithReturn) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    SheetWindow* sheet = typeNotesAndSave(window);
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->size(), QSize(400, 150));
    EXPECT_NE(findNamed<QWidget>(*sheet, u"Geben Sie einen Namen für die Notiz ein:"_s), nullptr);
    showActive(*sheet);
    auto* name = qobject_cast<QLineEdit*>(sheet->focusWidget());
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->accessibleName(), u"Name der Notiz"_s);
    auto* save = findNamed<QAbstractButton>(*sheet, u"Speichern"_s);
    ASSERT_NE(save, nullptr);
    EXPECT_FALSE(save->isEnabled());
    QTest::keyClick(name, Qt::Key_Space);
    settle();
    EXPECT_FALSE(save->isEnabled());
    QTest::keyClicks(name, u"Sofort"_s);
    settle();
    EXPECT_TRUE(save->isEnabled());
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    EXPECT_EQ(saveNoteSheet(window), nullptr);
    ASSERT_EQ(content.store.savedNotes->size(), 1U);
    EXPECT_EQ(content.store.savedNotes->front().name, " Sofort");
    EXPECT_EQ(content.store.savedNotes->front().content, "Zahlbar sofort.");
    EXPECT_TRUE(window.button(u"Gespeicherte Notizen"_s).isVisible());
}

TEST_F(InvoiceNotesTest, escapeAndCancelKeepNothingAndItCanBeAskedAgain) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    SheetWindow* sheet = typeNotesAndSave(window);
    ASSERT_NE(sheet, nullptr);
    QTest::keyClick(sheet, Qt::Key_Escape);
    settle();
    EXPECT_EQ(saveNoteSheet(window), nullptr);
    EXPECT_FALSE(window.view().showingSaveNoteSheet.get());
    EXPECT_TRUE(window.sheet->isVisible());
    window.button(u"Speichern"_s).click();
    settle();
    sheet = saveNoteSheet(window);
    ASSERT_NE(sheet, nullptr);
    findNamed<QAbstractButton>(*sheet, u"Abbrechen"_s)->click();
    settle();
    EXPECT_EQ(saveNoteSheet(window), nullptr);
    EXPECT_TRUE(content.store.savedNotes->empty());
}

TEST_F(InvoiceNotesTest, savedNotesAreOfferedOnlyWhenThereAreSome) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    EXPECT_FALSE(window.button(u"Gespeicherte Notizen"_s).isVisible());
    content.store.addSavedNote("Skonto", "2 % bei Zahlung in 7 Tagen");
    settle();
    EXPECT_TRUE(window.button(u"Gespeicherte Notizen"_s).isVisible());
}

TEST_F(InvoiceNotesTest, choosingOneFromTheMenuReplacesTheTextAndItCanBeDeleted) {
    InvoiceSheet content({}, std::nullopt);
    content.store.addSavedNote("Skonto", "2 % bei Zahlung in 7 Tagen");
    content.store.addSavedNote("Dank", "Vielen Dank");
    InvoiceSheetWindow window(content);
    EXPECT_FALSE(window.button(u"Ausgewählte Notiz löschen"_s).isEnabled());
    window.button(u"Gespeicherte Notizen"_s).click();
    settle();
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QWidget* receiver = menu->focusWidget() ? menu->focusWidget() : menu;
    QTest::keyClick(receiver, Qt::Key_Down);
    QTest::keyClick(receiver, Qt::Key_Return);
    settle();
    EXPECT_EQ(window.view().additionalNotes.get(), "Vielen Dank");
    window.button(u"Ausgewählte Notiz löschen"_s).click();
    settle();
    ASSERT_EQ(content.store.savedNotes->size(), 1U);
    EXPECT_EQ(content.store.savedNotes->front().name, "Skonto");
    EXPECT_FALSE(window.button(u"Ausgewählte Notiz löschen"_s).isEnabled());
    EXPECT_EQ(window.view().additionalNotes.get(), "Vielen Dank");
}

} // namespace
} // namespace brisklog::test
