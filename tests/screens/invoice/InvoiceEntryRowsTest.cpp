#include "screens/invoice/InvoiceSheetWindow.h"

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

TEST_F(InvoiceEntryRows, twelveRowsAreAllShownAndMoreScroll) {
    InvoiceSheet twelve(manyEntries(12), 60.0);
    InvoiceSheetWindow all(twelve);
    EXPECT_EQ(all.list().verticalScrollBar()->maximum(), 0);
    InvoiceSheet thirteen(manyEntries(13), 60.0);
    InvoiceSheetWindow some(thirteen);
    EXPECT_GT(some.list().verticalScrollBar()->maximum(), 0);
    EXPECT_LT(some.list().height(), all.list().height());
}

TEST_F(InvoiceEntryRows, aNewManualEntryIsScrolledIntoView) {
    InvoiceSheet content(manyEntries(30), 60.0);
    InvoiceSheetWindow window(content);
    window.button(u"Eintrag hinzufügen"_s).click();
    settle();
    ASSERT_EQ(window.list().model()->rowCount(), 31);
    const QRect last = window.list().visualRect(window.list().model()->index(30, 0));
    EXPECT_TRUE(window.list().viewport()->rect().contains(last));
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
