#include "ui/lists/RowList.h"

#include "support/screen/ScreenTest.h"
#include "ui/lists/RowDelegate.h"
#include "ui/lists/ScrollArea.h"

#include <QAbstractEventDispatcher>
#include <QScrollBar>
#include <QStringListModel>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <set>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr int rowHeight = 30;

class PlainRows final : public RowDelegate {
public:
    explicit PlainRows(RowList& list) : RowDelegate(list) {}

protected:
    void paintRow(QPainter& /*painter*/, const PaintedRow& /*row*/) const override {}

    [[nodiscard]] QSize sizeOf(const QModelIndex& /*index*/) const override { return {0, rowHeight}; }
};

/// Thirty rows, of which four and a half are visible.
class ComponentRowList : public ScreenTest {
protected:
    ComponentRowList() {
        QStringList texts;
        for (int i = 0; i < 30; ++i)
            texts.append(u"Zeile %1"_s.arg(i));
        rows.setStringList(texts);
        list.setRows(rows, *new PlainRows(list));
        list.resize(200, rowHeight * 9 / 2);
        showActive(list);
    }

    [[nodiscard]] QRect place(int row) const { return list.visualRect(rows.index(row)); }

    [[nodiscard]] bool isInView(int row) const { return list.viewport()->rect().contains(place(row)); }

    [[nodiscard]] int scrolled() const { return list.verticalScrollBar()->value(); }

    void press(Qt::Key key) {
        QTest::keyClick(&list, key);
        settle();
    }

    void turnWheel() {
        const QPointF middle = list.viewport()->rect().center();
        QWheelEvent wheel(middle, list.viewport()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list.viewport(), &wheel);
        settle();
    }

    void letTimersFire() {
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(&list)) {
            QTimerEvent due(timer.timerId);
            QCoreApplication::sendEvent(&list, &due);
        }
        settle();
    }

    QStringListModel rows;
    RowList list;
};

TEST_F(ComponentRowList, inAPageAKeyTurnsWhatIsInViewAndStopsAtTheEnds) {
    auto* const inPage = new RowList;
    inPage->setRows(rows, *new PlainRows(*inPage));
    inPage->setFixedHeight(30 * rowHeight);
    ScrollArea page(inPage);
    page.resize(200, 5 * rowHeight);
    showActive(page);
    const auto goOnFrom = [&](int row, Qt::Key key) {
        inPage->setCurrentIndex(rows.index(row));
        QTest::keyClick(inPage, key);
        return inPage->currentIndex().row();
    };
    EXPECT_EQ(goOnFrom(10, Qt::Key_PageDown), 14);
    EXPECT_EQ(goOnFrom(28, Qt::Key_PageDown), 29);
    EXPECT_EQ(goOnFrom(29, Qt::Key_PageDown), 29);
    EXPECT_EQ(goOnFrom(10, Qt::Key_PageUp), 6);
    EXPECT_EQ(goOnFrom(1, Qt::Key_PageUp), 0);
}

TEST_F(ComponentRowList, theWheelShowsEachRowWholeEvenWhereTheListIsLow) {
    list.resize(200, rowHeight * 5 / 2);
    settle();
    std::set<int> seen;
    for (int notch = 0; notch < 60; ++notch) {
        for (int row = 0; row < rows.rowCount(); ++row)
            if (isInView(row))
                seen.insert(row);
        turnWheel();
    }
    EXPECT_EQ(seen.size(), 30U);
}

TEST_F(ComponentRowList, aClickedRowStaysWhereItIs_alsoWhenNoSecondClickFollows) {
    const QPoint onHalfRow(20, place(4).top() + 4);
    QTest::mouseClick(list.windowHandle(), Qt::LeftButton, {}, onHalfRow);
    settle();
    EXPECT_EQ(list.currentIndex().row(), 4);
    EXPECT_EQ(scrolled(), 0);
    letTimersFire();
    EXPECT_EQ(scrolled(), 0);
}

TEST_F(ComponentRowList, theArrowKeysKeepTheCurrentRowInView) {
    list.setFocus(Qt::TabFocusReason);
    for (int row = 1; row < 30; ++row) {
        press(Qt::Key_Down);
        EXPECT_EQ(list.currentIndex().row(), row);
        EXPECT_TRUE(isInView(row)) << row;
    }
    press(Qt::Key_Home);
    EXPECT_TRUE(isInView(0));
    press(Qt::Key_End);
    EXPECT_TRUE(isInView(29));
}

TEST_F(ComponentRowList, tabBringsTheCurrentRowBackIntoView) {
    list.setFocus(Qt::TabFocusReason);
    list.clearFocus();
    list.verticalScrollBar()->setValue(400);
    list.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isInView(0));
}

TEST_F(ComponentRowList, aKeyThatActsOnTheCurrentRowBringsItIntoView) {
    list.onKey([](const QModelIndex&, int key) { return key == Qt::Key_Space; });
    list.setFocus(Qt::TabFocusReason);
    list.verticalScrollBar()->setValue(400);
    press(Qt::Key_Shift);
    EXPECT_EQ(scrolled(), 400);
    press(Qt::Key_Space);
    EXPECT_TRUE(isInView(0));
}

TEST_F(ComponentRowList, draggingAcrossTheEdgeScrollsNothing) {
    QTest::mousePress(list.windowHandle(), Qt::LeftButton, {}, QPoint(20, 10));
    for (int y = 20; y < 134; y += 19)
        QTest::mouseMove(list.windowHandle(), QPoint(20, y));
    settle();
    letTimersFire();
    QTest::mouseRelease(list.windowHandle(), Qt::LeftButton, {}, QPoint(20, 133));
    settle();
    EXPECT_EQ(scrolled(), 0);
}

} // namespace
} // namespace brisklog::test
