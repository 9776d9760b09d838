#include "support/screen/ScreenTest.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/MonthPopup.h"
#include "ui/controls/Switch.h"
#include "ui/look/Palette.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentToggle : public ScreenTest {};

TEST_F(ComponentToggle, aSwitchIsACheckBoxForTheScreenReader) {
    Switch toggle(u"Auto-Tracking"_s);
    EXPECT_EQ(accessibleNameOf(toggle), u"Auto-Tracking"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&toggle)->role(), QAccessible::CheckBox);
}

TEST_F(ComponentToggle, aSwitchMovesItsKnobAndTellsOnlyTheUsersChange) {
    Switch toggle(u"Auto-Tracking"_s);
    std::vector<bool> told;
    toggle.onToggled([&told](bool isOn) { told.push_back(isOn); });
    toggle.resize(toggle.sizeHint());
    showActive(toggle);
    const Palette& palette = Palette::of(ColorScheme::light);
    EXPECT_EQ(picture(toggle).pixelColor(11, 11), palette.white);
    EXPECT_EQ(picture(toggle).pixelColor(30, 11), palette.rule);
    toggle.setOn(true);
    EXPECT_EQ(picture(toggle).pixelColor(27, 11), palette.white);
    EXPECT_EQ(picture(toggle).pixelColor(7, 11), palette.blueFill);
    EXPECT_TRUE(told.empty());
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_EQ(told, std::vector{false});
    EXPECT_EQ(picture(toggle).pixelColor(11, 11), palette.white);
}

class ComponentDateTimeField : public ScreenTest {
protected:
    ComponentDateTimeField() {
        field.setMoment(moment);
        field.onEdited([this](const QDateTime& edited) { told.push_back(edited); });
        field.resize(field.sizeHint());
    }

    QDateTime moment{QDate(2026, 11, 20), QTime(14, 30), Qt::UTC};
    DateTimeField field{u"Datum:"_s, Qt::Monday};
    std::vector<QDateTime> told;
};

TEST_F(ComponentDateTimeField, getsNoFocusFromTheWheelThatScrollsThePage) {
    EXPECT_EQ(field.focusPolicy(), Qt::StrongFocus);
}

TEST_F(ComponentDateTimeField, showsDayAndTimeInGerman) {
    EXPECT_EQ(field.text(), u"20.11.2026, 14:30"_s);
    EXPECT_EQ(accessibleNameOf(field), u"Datum:"_s);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentDateTimeField, hasRoomForAllOfIt) {
    showActive(field);
    const auto* line = field.findChild<QLineEdit*>();
    EXPECT_GE(line->width() - 4, line->fontMetrics().horizontalAdvance(u"30.08.2026, 20:08"_s));
}

TEST_F(ComponentDateTimeField, isTypedPartByPart) {
    showActive(field);
    field.setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(&field, u"05"_s);
    EXPECT_EQ(field.dateTime(), QDateTime(QDate(2026, 11, 5), QTime(14, 30), Qt::UTC));
    field.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.dateTime(), QDateTime(QDate(2026, 11, 5), QTime(14, 31), Qt::UTC));
    EXPECT_FALSE(told.empty());
}

TEST_F(ComponentDateTimeField, theSymbolOpensAMonthWhoseDayIsTaken) {
    showActive(field);
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 12, 16));
    auto* month = dynamic_cast<MonthPopup*>(QApplication::activePopupWidget());
    ASSERT_NE(month, nullptr);
    EXPECT_EQ(month->currentDay(), QDate(2026, 11, 20));
    QTest::keyClick(month, Qt::Key_Left);
    QTest::keyClick(month, Qt::Key_Up);
    QTest::keyClick(month, Qt::Key_PageUp);
    QTest::keyClick(month, Qt::Key_Return);
    EXPECT_EQ(told, std::vector{QDateTime(QDate(2026, 10, 12), QTime(14, 30), Qt::UTC)});
    EXPECT_EQ(field.text(), u"12.10.2026, 14:30"_s);
}

TEST_F(ComponentDateTimeField, theMonthNamesItsWeekdaysAsTheCalendarOfTheTracker) {
    MonthPopup month(field, moment.date(), Qt::Monday, [](const QDate&) {});
    EXPECT_EQ(month.heading(0), u"Mo."_s);
    EXPECT_EQ(month.heading(6), u"So."_s);
}

TEST_F(ComponentDateTimeField, theMonthStaysOnTheScreen) {
    const QRect available = field.screen()->availableGeometry();
    for (const QPoint corner : {QPoint(available.right() - 40, 100), QPoint(available.left() - 60, 100),
                                QPoint(100, available.bottom() - 40)}) {
        field.move(corner);
        showActive(field);
        QWidget* const month = field.showCalendar();
        EXPECT_TRUE(available.contains(month->geometry()))
            << month->x() << ", " << month->y() << " of " << available.width() << " × " << available.height();
        month->close();
        settle();
    }
}

TEST_F(ComponentDateTimeField, escapeLeavesTheDay) {
    showActive(field);
    QTest::keyClick(&field, Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentDateTimeField, aDayIsTakenWithTheMouse) {
    showActive(field);
    QWidget* month = field.showCalendar();
    // The last cell of the grid is after November, whichever day the locale's week begins with.
    QTest::mouseClick(month, Qt::LeftButton, {}, QPoint(month->width() - 8 - 16, month->height() - 8 - 14));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.front().date().month(), 12);
}

} // namespace
} // namespace brisklog::test
