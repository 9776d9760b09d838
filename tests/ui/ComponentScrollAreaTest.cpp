#include "ui/lists/ScrollArea.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/Button.h"
#include "ui/controls/TextField.h"
#include "ui/look/Layout.h"

#include <QScrollBar>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentScrollArea : public ScreenTest {
protected:
    ComponentScrollArea() {
        auto* content = new QWidget;
        button->setFocusPolicy(Qt::NoFocus);
        Column{first, button, space(600), last}.applyTo(*content);
        area.setContent(content);
        area.resize(200, 200);
        showActive(area);
    }

    [[nodiscard]] bool isInView(const QWidget& widget) const {
        const QWidget& seen = *area.viewport();
        return seen.rect().contains(QRect(widget.mapTo(&seen, QPoint(0, 0)), widget.size()));
    }

    /// Until the lowest visible line is that many pixels below the widget's top.
    void scrollTo(const QWidget& widget, int visible) {
        const int top = widget.mapTo(area.widget(), QPoint()).y();
        area.verticalScrollBar()->setValue(top + visible - area.viewport()->height());
    }

    Button* button = new Button(u"Speichern"_s);
    TextField* first = new TextField(u"Vorname"_s);
    TextField* last = new TextField(u"Telefon"_s);
    ScrollArea area;
};

TEST_F(ComponentScrollArea, keepsInViewWhatAScreenReaderFocuses) {
    EXPECT_FALSE(isInView(*last));
    last->setFocus(Qt::OtherFocusReason);
    settle();
    EXPECT_TRUE(isInView(*last));
    EXPECT_FALSE(isInView(*first));
    first->setFocus(Qt::OtherFocusReason);
    settle();
    EXPECT_TRUE(isInView(*first));
}

TEST_F(ComponentScrollArea, keepsInViewWhatTabReaches) {
    first->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(last->hasFocus());
    EXPECT_TRUE(isInView(*last));
    QTest::keyClick(last, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(isInView(*first));
}

TEST_F(ComponentScrollArea, aFieldHalfInViewIsEnteredWithTheMouseWhereItIs) {
    scrollTo(*last, last->height() / 2);
    const int before = area.verticalScrollBar()->value();
    const QPoint upperHalf = last->mapTo(&area, QPoint(20, 4));
    QTest::mousePress(area.windowHandle(), Qt::LeftButton, {}, upperHalf);
    settle();
    EXPECT_TRUE(last->hasFocus());
    EXPECT_EQ(area.verticalScrollBar()->value(), before);
    QTest::mouseRelease(area.windowHandle(), Qt::LeftButton, {}, upperHalf);
    settle();
    EXPECT_EQ(area.verticalScrollBar()->value(), before);
}

TEST_F(ComponentScrollArea, aFieldThatAClickHidesPassesItsFocusOnWithoutMovingThePage) {
    button->onClick([this] { first->hide(); });
    first->setFocus(Qt::MouseFocusReason);
    settle();
    QTest::mouseClick(area.windowHandle(), Qt::LeftButton, {}, button->mapTo(&area, button->rect().center()));
    settle();
    EXPECT_TRUE(last->hasFocus());
    EXPECT_EQ(area.verticalScrollBar()->value(), 0);
}

TEST_F(ComponentScrollArea, returningToTheWindowLeavesThePageWhereTheWheelHasMovedIt) {
    first->setFocus(Qt::OtherFocusReason);
    area.verticalScrollBar()->setValue(300);
    QWidget other;
    showActive(other);
    showActive(area);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(area.verticalScrollBar()->value(), 300);
}

} // namespace
} // namespace brisklog::test
