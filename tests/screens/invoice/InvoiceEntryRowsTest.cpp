#include "screens/invoice/InvoiceSheetWindow.h"

#include "support/screen/ScreenReader.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <chrono>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoiceEntryRows : public ScreenTest {
protected:
    static std::vector<TimeEntry> threeEntries() {
        TimeEntry invoiced = entryOf("Alt", hour);
        invoiced.isInvoiced = true;
        return {invoiced, entryOf("Neu", hour), entryOf("Neuer", hour)};
    }

    static std::vector<TimeEntry> manyEntries(std::size_t count) {
        std::vector<TimeEntry> entries;
        for (std::size_t i = 0; i < count; ++i)
            entries.push_back(entryOf("Aufgabe " + std::to_string(i), hour));
        return entries;
    }
};

TEST_F(InvoiceEntryRows, aClickAnywhereInARowToggles) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(1);
    EXPECT_TRUE(window.view().entryStatuses.get()[1].isSelected);
    EXPECT_EQ(window.list().model()->index(1, 0).data(Qt::CheckStateRole), Qt::Checked);
    window.clickRow(1);
    EXPECT_TRUE(window.view().selectedEntries().empty());
}

TEST_F(InvoiceEntryRows, anInvoicedRowStaysTickableAndSaysWhy) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    EXPECT_TRUE(window.view().entryStatuses.get()[0].isSelected);
    const QModelIndex invoiced = window.list().model()->index(0, 0);
    EXPECT_TRUE(invoiced.data(Qt::AccessibleTextRole).toString().endsWith(u"Bereits abgerechnet"_s));
    EXPECT_EQ(invoiced.siblingAtRow(1).data(Qt::AccessibleDescriptionRole).toString(), QString());

    const QPoint middle = window.list().visualRect(invoiced).center();
    QHelpEvent help(QEvent::ToolTip, middle, window.list().viewport()->mapToGlobal(middle));
    QCoreApplication::sendEvent(window.list().viewport(), &help);
    EXPECT_EQ(QToolTip::text(), u"Bereits abgerechnet"_s);
}

TEST_F(InvoiceEntryRows, areTickedByAScreenReaderAndTellIt) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    QAccessibleInterface& row = *ScreenReader::of(window.list()).child(1);
    EXPECT_EQ(row.role(), QAccessible::CheckBox);
    EXPECT_TRUE(row.state().checkable);
    EXPECT_FALSE(row.state().checked);
    ScreenReader reader;
    ScreenReader::act(row, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(window.view().entryStatuses.get()[1].isSelected);
    EXPECT_TRUE(row.state().checked);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, row.text(QAccessible::Name)), 1);
}

TEST_F(InvoiceEntryRows, areDeletedByAScreenReaderToo) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    QAccessibleInterface& row = *ScreenReader::of(window.list()).child(1);
    ScreenReader::act(row, u"Löschen"_s);
    ASSERT_EQ(window.list().model()->rowCount(), 2);
    EXPECT_EQ(content.projectEntries()[1].taskName, "Neuer");
}

TEST_F(InvoiceEntryRows, tellTheScreenReaderTheSumOfAllAndWhatWasDeleted) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    ScreenReader reader;
    window.button(u"Alle auswählen"_s).click();
    window.clickTrash(0);
    EXPECT_EQ(reader.announced(), (QStringList{u"3 Einträge · 180.00 €"_s, u"Eintrag gelöscht"_s}));
}

TEST_F(InvoiceEntryRows, theTrashDeletesAtOnce) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    window.view().toggleEntry(2);
    window.clickTrash(1);
    EXPECT_EQ(window.list().model()->rowCount(), 2);
    ASSERT_EQ(content.projectEntries().size(), 2U);
    EXPECT_EQ(content.projectEntries()[1].taskName, "Neuer");
    EXPECT_EQ(window.view().selectedEntries().size(), 1U);
}

TEST_F(InvoiceEntryRows, theTrashUnderThePointerIsMarked_alsoWhenItsRowHasOnlyJustCome) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    QWidget& rows = *window.list().viewport();
    const QRect second = window.list().visualRect(window.list().model()->index(1, 0));
    const QPoint onTrash(second.right() - 28, second.center().y() - 8);
    const auto colorThere = [&] { return picture(rows).pixelColor(onTrash); };
    const QColor resting = colorThere();
    QMouseEvent move(QEvent::MouseMove, onTrash, rows.mapToGlobal(onTrash), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(&rows, &move);
    const QColor hovered = colorThere();
    EXPECT_NE(hovered, resting);
    window.clickTrash(1);
    EXPECT_EQ(colorThere(), hovered);
    unhover(rows);
    EXPECT_EQ(colorThere(), resting);
}

TEST_F(InvoiceEntryRows, aPressThatEndsElsewhereDoesNothing) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    QWidget* viewport = window.list().viewport();
    const QPoint first = window.list().visualRect(window.list().model()->index(0, 0)).center();
    const QPoint second = window.list().visualRect(window.list().model()->index(1, 0)).center();
    QTest::mousePress(viewport, Qt::LeftButton, {}, first);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, second);
    QTest::mouseClick(viewport, Qt::RightButton, {}, first);
    settle();
    EXPECT_TRUE(window.view().selectedEntries().empty());
}

TEST_F(InvoiceEntryRows, theKeyboardMovesTogglesAndDeletes) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    window.list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&window.list(), Qt::Key_Down);
    QTest::keyClick(&window.list(), Qt::Key_Space);
    settle();
    ASSERT_EQ(window.view().selectedEntries().size(), 1U);
    EXPECT_EQ(window.view().selectedEntries()[0].entry.taskName, "Neu");
    QTest::keyClick(&window.list(), Qt::Key_Delete);
    settle();
    ASSERT_EQ(content.projectEntries().size(), 2U);
    EXPECT_EQ(content.projectEntries()[1].taskName, "Neuer");
    QTest::keyClick(&window.list(), Qt::Key_Space);
    EXPECT_EQ(window.view().selectedEntries().size(), 1U);
}

TEST_F(InvoiceEntryRows, deletingTheLastRowLeavesTheSentence) {
    InvoiceSheet content({entryOf("Einziger", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.label(u"Keine Einträge vorhanden."_s), nullptr);
    window.clickTrash(0);
    EXPECT_NE(window.label(u"Keine Einträge vorhanden."_s), nullptr);
    EXPECT_FALSE(window.list().isVisible());
    QTest::keyClick(&window.list(), Qt::Key_Delete);
    QTest::keyClick(&window.list(), Qt::Key_Space);
}

TEST_F(InvoiceEntryRows, theSumsFollowTheTicks) {
    InvoiceSheet content({entryOf("Eins", hour), entryOf("Zwei", hour / 2, 100.0)}, 60.0);
    InvoiceSheetWindow window(content);
    EXPECT_NE(window.label(u"0.00 €"_s), nullptr);
    window.button(u"Alle auswählen"_s).click();
    settle();
    EXPECT_NE(window.label(u"Ausgewählte Einträge:"_s), nullptr);
    EXPECT_NE(window.label(u"2"_s), nullptr);
    EXPECT_NE(window.label(u"1\u00A0h 30\u00A0min"_s), nullptr);
    EXPECT_NE(window.label(u"110.00 €"_s), nullptr);
    window.button(u"Alle abwählen"_s).click();
    settle();
    EXPECT_NE(window.label(u"0"_s), nullptr);
}

TEST_F(InvoiceEntryRows, aProjectWithoutRateShowsNoTotal) {
    InvoiceSheet content({entryOf("Eigener", hour, 80.0)}, std::nullopt);
    InvoiceSheetWindow window(content);
    window.button(u"Alle auswählen"_s).click();
    settle();
    EXPECT_EQ(window.label(u"80.00 €"_s), nullptr);
    EXPECT_TRUE(window.list()
                    .model()
                    ->index(0, 0)
                    .data(Qt::AccessibleTextRole)
                    .toString()
                    .contains(u"80,00\u00A0€"_s));
}

TEST_F(InvoiceEntryRows, theSheetScrollsAsAWholeHoweverManyRowsThereAre) {
    for (const std::size_t count : {1U, 13U, 500U}) {
        InvoiceSheet content(manyEntries(count), 60.0);
        InvoiceSheetWindow window(content);
        EXPECT_EQ(window.list().verticalScrollBar()->maximum(), 0) << count;
        EXPECT_EQ(window.list().height(), static_cast<int>(count) * 38);
        EXPECT_EQ(window.page().verticalScrollBar()->maximum(),
                  window.page().widget()->height() - window.page().viewport()->height());
    }
}

TEST_F(InvoiceEntryRows, theLastOfManyRowsIsReachedAndWhatIsBelowTheListToo) {
    InvoiceSheet content(manyEntries(25000), 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(24999);
    EXPECT_TRUE(window.view().entryStatuses->back().isSelected);
    window.page().verticalScrollBar()->setValue(window.page().verticalScrollBar()->maximum());
    settle();
    const QWidget& below = window.button(u"Speichern"_s);
    EXPECT_TRUE(window.isInView(below, below.rect()));
}

TEST_F(InvoiceEntryRows, theKeyboardKeepsTheCurrentRowInView) {
    InvoiceSheet content(manyEntries(60), 60.0);
    InvoiceSheetWindow window(content);
    window.list().setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(window.isRowInView(0));
    for (int row = 1; row < 60; ++row) {
        QTest::keyClick(&window.list(), Qt::Key_Down);
        EXPECT_EQ(window.list().currentIndex().row(), row);
        EXPECT_TRUE(window.isRowInView(row)) << row;
    }
    QTest::keyClick(&window.list(), Qt::Key_Home);
    EXPECT_TRUE(window.isRowInView(0));
    QTest::keyClick(&window.list(), Qt::Key_End);
    EXPECT_TRUE(window.isRowInView(59));
}

TEST_F(InvoiceEntryRows, pageKeysMoveByWhatTheSheetShows) {
    InvoiceSheet content(manyEntries(60), 60.0);
    InvoiceSheetWindow window(content);
    window.list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&window.list(), Qt::Key_PageDown);
    const int step = window.list().currentIndex().row();
    EXPECT_GE(step, 10);
    EXPECT_LE(step, window.page().viewport()->height() / 38);
    EXPECT_TRUE(window.isRowInView(step));
    QTest::keyClick(&window.list(), Qt::Key_PageDown);
    EXPECT_EQ(window.list().currentIndex().row(), 2 * step);
    QTest::keyClick(&window.list(), Qt::Key_PageUp);
    EXPECT_EQ(window.list().currentIndex().row(), step);
    EXPECT_TRUE(window.isRowInView(step));
}

TEST_F(InvoiceEntryRows, tabIntoTheListBringsItsCurrentRowIntoView) {
    InvoiceSheet content(manyEntries(60), 60.0);
    InvoiceSheetWindow window(content);
    window.list().setCurrentIndex(window.list().model()->index(40, 0));
    QAbstractButton& before = window.button(u"Alle abwählen"_s);
    before.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(window.list().hasFocus());
    EXPECT_TRUE(window.isRowInView(40));
}

TEST_F(InvoiceEntryRows, aNewManualEntryIsInViewAndItsButtonStillUnderThePointer) {
    InvoiceSheet content(manyEntries(30), 60.0);
    InvoiceSheetWindow window(content);
    QAbstractButton& add = window.button(u"Eintrag hinzufügen"_s);
    window.page().ensureWidgetVisible(&add, 0, 4);
    const QPoint place = add.mapTo(window.sheet, QPoint());
    QTest::mouseClick(window.sheet->windowHandle(), Qt::LeftButton, {}, place + add.rect().center());
    settle();
    ASSERT_EQ(window.list().model()->rowCount(), 31);
    EXPECT_TRUE(window.isRowInView(30));
    EXPECT_EQ(add.mapTo(window.sheet, QPoint()), place);
}

TEST_F(InvoiceEntryRows, aNewManualEntryComesIntoViewEvenIfItsButtonHasToMove) {
    InvoiceSheet content(manyEntries(30), 60.0);
    InvoiceSheetWindow window(content);
    window.page().verticalScrollBar()->setValue(window.page().verticalScrollBar()->maximum());
    window.button(u"Eintrag hinzufügen"_s).click();
    settle();
    EXPECT_TRUE(window.isRowInView(30));
}

TEST_F(InvoiceEntryRows, looksDifferentWhenTicked) {
    InvoiceSheet content(threeEntries(), 60.0);
    InvoiceSheetWindow window(content);
    const QImage before = picture(*window.list().viewport());
    window.clickRow(1);
    EXPECT_NE(picture(*window.list().viewport()), before);
}

TEST_F(InvoiceEntryRows, twentyFiveThousandOpenAndToggleWithoutAPause) {
    InvoiceSheet content(manyEntries(25000), 60.0);
    using Clock = std::chrono::steady_clock;
    const auto milliseconds = [](Clock::duration took) {
        return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(took).count());
    };
    const auto opening = Clock::now();
    InvoiceSheetWindow window(content);
    static_cast<void>(picture(*window.sheet));
    const auto toggling = Clock::now();
    for (int row = 0; row < 10; ++row) {
        window.clickRow(row * 2500);
        static_cast<void>(picture(*window.sheet));
    }
    const auto end = Clock::now();
    RecordProperty("opening", milliseconds(toggling - opening));
    RecordProperty("tenToggles", milliseconds(end - toggling));
    EXPECT_EQ(window.view().selectedEntries().size(), 10U);
    // Generous for slow machines and sanitizers; creating every row takes many times as long.
    EXPECT_LT(toggling - opening, std::chrono::seconds(2));
    EXPECT_LT(end - toggling, std::chrono::seconds(3));
}

} // namespace
} // namespace brisklog::test
