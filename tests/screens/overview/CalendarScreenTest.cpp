#include "overview/screens/CalendarScreen.h"

#include "screens/autotrack/AutoTrackingBench.h"
#include "ui/look/Palette.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class CalendarScreenTest : public AutoTrackingBench {
protected:
    /// Opens the panel and goes into the calendar with Tab.
    void enter() {
        openPanel();
        button(u"Nächster Monat"_s).setFocus(Qt::TabFocusReason);
        press(Qt::Key_Tab);
    }
};

TEST_F(CalendarScreenTest, hasAHeadingForEveryColumn) {
    openPanel();
    for (const QString& heading : {u"Mo."_s, u"Di."_s, u"Mi."_s, u"Do."_s, u"Fr."_s, u"Sa."_s, u"So."_s})
        EXPECT_TRUE(shows(heading)) << heading.toStdString();
}

TEST_F(CalendarScreenTest, chevronsShowTheMonthsBeforeAndAfter) {
    openPanel();
    click(u"Voriger Monat"_s);
    EXPECT_TRUE(shows(u"Oktober 2026"_s));
    click(u"Nächster Monat"_s);
    click(u"Nächster Monat"_s);
    click(u"Nächster Monat"_s);
    EXPECT_TRUE(shows(u"Januar 2027"_s));
    EXPECT_EQ(cell(u"31. Januar 2027"_s).accessibleDescription(), u""_s);
}

TEST_F(CalendarScreenTest, cellsAreNamedByTheirDayAndWhetherItHasData) {
    openPanel();
    record(5, "Editor", 60);
    EXPECT_EQ(accessibleNameOf(cell(u"15. November 2026, mit Daten"_s)), u"15. November 2026, mit Daten"_s);
    EXPECT_EQ(cell(u"20. November 2026"_s).accessibleDescription(), u"Heute"_s);
}

TEST_F(CalendarScreenTest, dotsComeWithDataAndGoWithIt) {
    openPanel();
    // A day of the month shown, and one of the month before.
    for (const auto& [daysAgo, name] : {std::pair{5, u"15. November 2026"_s}, {25, u"26. Oktober 2026"_s}}) {
        const QImage without = cell(name).grab().toImage();
        record(daysAgo, "Editor", 60);
        const QImage with = cell(name + u", mit Daten"_s).grab().toImage();
        const QPoint dot(with.width() / 2, 31);
        EXPECT_NE(with.pixelColor(dot), without.pixelColor(dot));
        EXPECT_EQ(with.pixelColor(dot), Palette::current().blue);
        manager().clearAllData();
        settle();
        EXPECT_EQ(cell(name).grab().toImage(), without);
    }
}

TEST_F(CalendarScreenTest, daysOfNeighbouringMonthsAreGreyed) {
    openPanel();
    const auto darkest = [this](const QString& name) {
        const QImage image = cell(name).grab().toImage();
        int lightness = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                lightness = std::min(lightness, image.pixelColor(x, y).lightness());
        return lightness;
    };
    EXPECT_GT(darkest(u"28. Oktober 2026"_s), darkest(u"18. November 2026"_s) + 30);
}

TEST_F(CalendarScreenTest, isOneStopForTheKeyboardBeginningWithToday) {
    enter();
    EXPECT_EQ(focusedName(), u"20. November 2026"_s);
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedName(), u"Daten löschen"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focusedName(), u"20. November 2026"_s);
}

TEST_F(CalendarScreenTest, arrowsMoveByDaysAndWeeks) {
    enter();
    press(Qt::Key_Left);
    EXPECT_EQ(focusedName(), u"19. November 2026"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(focusedName(), u"12. November 2026"_s);
    press(Qt::Key_Right);
    EXPECT_EQ(focusedName(), u"13. November 2026"_s);
    press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), u"20. November 2026"_s);
}

TEST_F(CalendarScreenTest, arrowsBeyondTheGridShowTheNeighbouringMonth) {
    enter();
    for (int week = 0; week < 4; ++week)
        press(Qt::Key_Up);
    EXPECT_EQ(focusedName(), u"23. Oktober 2026"_s);
    EXPECT_TRUE(shows(u"Oktober 2026"_s));
    for (int week = 0; week < 6; ++week)
        press(Qt::Key_Down);
    EXPECT_EQ(focusedName(), u"4. Dezember 2026"_s);
    for (int back = 0; back < 42; ++back)
        press(Qt::Key_Left);
    EXPECT_EQ(focusedName(), u"23. Oktober 2026"_s);
}

TEST_F(CalendarScreenTest, pageKeysMoveByMonthsAndStayWithinThem) {
    enter();
    for (int days = 0; days < 10; ++days)
        press(Qt::Key_Right);
    EXPECT_EQ(focusedName(), u"30. November 2026"_s);
    for (int months = 0; months < 3; ++months)
        press(Qt::Key_PageDown);
    EXPECT_EQ(focusedName(), u"28. Februar 2027"_s);
    press(Qt::Key_PageUp);
    EXPECT_EQ(focusedName(), u"28. Januar 2027"_s);
}

TEST_F(CalendarScreenTest, returnChoosesTheDay) {
    enter();
    record(1, "Editor", 60);
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    ASSERT_EQ(dayWindows().size(), 1U);
    EXPECT_EQ(dayWindows()[0]->windowTitle(), u"App-Nutzung: 19.11.2026"_s);
    EXPECT_EQ(cell(u"19. November 2026, mit Daten"_s).accessibleDescription(), u"Ausgewählt"_s);
}

TEST_F(CalendarScreenTest, dayWithoutDataIsSelectedAndOpensNothing) {
    openPanel();
    QTest::mouseClick(&cell(u"10. November 2026"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(cell(u"10. November 2026"_s).accessibleDescription(), u"Ausgewählt"_s);
    EXPECT_TRUE(dayWindows().empty());
}

TEST_F(CalendarScreenTest, dayThatBeganWhileHiddenIsTodayWhenShownAgain) {
    openPanel();
    screen->hide();
    bench.clock.advance(fullDay);
    screen->show();
    settle();
    EXPECT_EQ(cell(u"21. November 2026"_s).accessibleDescription(), u"Heute"_s);
    EXPECT_EQ(cell(u"20. November 2026"_s).accessibleDescription(), u""_s);
}

TEST_F(CalendarScreenTest, dayThatBeginsWhileItIsShownIsTodayFromTheNextTickOn) {
    openPanel();
    bench.clock.advance(fullDay);
    bench.runLoop.advance(1);
    settle();
    EXPECT_EQ(cell(u"21. November 2026"_s).accessibleDescription(), u"Heute"_s);
    EXPECT_EQ(cell(u"20. November 2026"_s).accessibleDescription(), u""_s);
}

} // namespace
} // namespace brisklog::test
