#include "support/screen/ScreenTest.h"
#include "ui/controls/Stepper.h"

#include <QAccessible>
#include <QTest>
#include <vector>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr QPoint onTheNumber(20, 16);
constexpr QPoint onMinus(62, 16);
constexpr QPoint onPlus(90, 16);

class ComponentStepper : public ScreenTest {
protected:
    ComponentStepper() {
        stepper.onStepped([this](int number) { told.push_back(number); });
        stepper.resize(stepper.sizeHint());
    }

    void clickMinus() { QTest::mouseClick(&stepper, Qt::LeftButton, {}, onMinus); }

    void clickPlus() { QTest::mouseClick(&stepper, Qt::LeftButton, {}, onPlus); }

    /// As if reached with Tab, which selects the number.
    void enter() {
        showActive(stepper);
        stepper.clearFocus();
        stepper.setFocus(Qt::TabFocusReason);
    }

    QAccessibleInterface& interface() { return *QAccessible::queryAccessibleInterface(&stepper); }

    void type(const QString& text) { QTest::keyClicks(&stepper, text); }

    Stepper stepper{0, 23, u"h"_s, u"Stunden"_s};
    std::vector<int> told;
};

TEST_F(ComponentStepper, stepsWithItsButtonsAndTheArrowKeys) {
    showActive(stepper);
    clickPlus();
    clickPlus();
    clickMinus();
    QTest::keyClick(&stepper, Qt::Key_Up);
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(told, (std::vector{1, 2, 1, 2, 1}));
    EXPECT_EQ(stepper.value(), 1);
}

TEST_F(ComponentStepper, pageKeysStepByTen) {
    showActive(stepper);
    QTest::keyClick(&stepper, Qt::Key_PageUp);
    EXPECT_EQ(stepper.value(), 10);
    QTest::keyClick(&stepper, Qt::Key_PageDown);
    EXPECT_EQ(stepper.value(), 0);
}

TEST_F(ComponentStepper, aHeldButtonRepeats) {
    showActive(stepper);
    QTest::mousePress(&stepper, Qt::LeftButton, {}, onPlus);
    EXPECT_TRUE(QTest::qWaitFor([this] { return stepper.value() > 2; }));
    QTest::mouseRelease(&stepper, Qt::LeftButton, {}, onPlus);
}

TEST_F(ComponentStepper, staysInItsRange) {
    showActive(stepper);
    clickMinus();
    EXPECT_EQ(stepper.value(), 0);
    stepper.setNumber(23);
    clickPlus();
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(stepper.value(), 23);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentStepper, settingItTellsNobody) {
    stepper.setNumber(7);
    EXPECT_EQ(stepper.value(), 7);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentStepper, aClickOnTheNumberChangesNothing) {
    showActive(stepper);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, onTheNumber);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentStepper, theWheelIsLeftToThePage) {
    showActive(stepper);
    QWheelEvent wheel(onTheNumber, stepper.mapToGlobal(onTheNumber), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&stepper, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(stepper.value(), 0);
}

TEST_F(ComponentStepper, takesTypedDigitsOverOnReturn) {
    enter();
    type(u"12"_s);
    EXPECT_TRUE(told.empty());
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_EQ(told, std::vector{12});
}

TEST_F(ComponentStepper, takesTypedDigitsOverWhenItIsLeft) {
    enter();
    type(u"7"_s);
    stepper.clearFocus();
    EXPECT_EQ(told, std::vector{7});
}

TEST_F(ComponentStepper, stepsOnFromWhatWasTyped) {
    enter();
    type(u"7"_s);
    clickPlus();
    EXPECT_EQ(stepper.value(), 8);
    type(u"12"_s);
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(stepper.value(), 13);
}

TEST_F(ComponentStepper, escapeRestoresTheNumberBeforeWhatWasTyped) {
    stepper.setNumber(5);
    enter();
    type(u"12"_s);
    QTest::keyClick(&stepper, Qt::Key_Escape);
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_EQ(stepper.value(), 5);
    EXPECT_EQ(stepper.text(), u"5h"_s);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentStepper, aTypedNumberThatIsTooLargeBecomesTheLargest) {
    enter();
    type(u"90"_s);
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_EQ(stepper.value(), 23);
    EXPECT_EQ(stepper.text(), u"23h"_s);
}

TEST_F(ComponentStepper, lettersAndAMinusAreNotAccepted) {
    enter();
    type(u"-a4x"_s);
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_EQ(stepper.value(), 4);
}

TEST_F(ComponentStepper, anEmptiedNumberComesBack) {
    stepper.setNumber(5);
    enter();
    QTest::keyClick(&stepper, Qt::Key_Delete);
    stepper.clearFocus();
    EXPECT_EQ(stepper.text(), u"5h"_s);
    EXPECT_TRUE(told.empty());
}

TEST_F(ComponentStepper, typedTextIsNotDisturbedBySettingTheNumberItHas) {
    enter();
    type(u"1"_s);
    stepper.setNumber(0);
    type(u"2"_s);
    QTest::keyClick(&stepper, Qt::Key_Return);
    EXPECT_EQ(stepper.value(), 12);
}

TEST_F(ComponentStepper, handsOnTypedTextThatIsNoWholeNumber) {
    std::vector<QString> typed;
    stepper.onTypedText([&typed](const QString& text) { typed.push_back(text); });
    stepper.setNumber(3);
    enter();
    for (const QString& text : {u"1:30"_s, u"1,5"_s, u"1.5"_s}) {
        type(text);
        QTest::keyClick(&stepper, Qt::Key_Return);
    }
    EXPECT_EQ(typed, (std::vector{u"1:30"_s, u"1,5"_s, u"1.5"_s}));
    EXPECT_EQ(stepper.text(), u"3h"_s);
    EXPECT_TRUE(told.empty());
}

/// The keys that reach the window around the stepper.
class Surroundings final : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

TEST_F(ComponentStepper, returnAndEscapeReachTheWindowOnlyWhileNothingIsBeingTyped) {
    Surroundings window;
    auto* const inside = new Stepper(0, 23, u"h"_s, u"Stunden"_s, &window);
    showActive(window);
    inside->setFocus();
    inside->selectAll();
    QTest::keyClicks(inside, u"4"_s);
    QTest::keyClick(inside, Qt::Key_Return);
    QTest::keyClicks(inside, u"5"_s);
    QTest::keyClick(inside, Qt::Key_Escape);
    EXPECT_TRUE(window.keys.empty());
    QTest::keyClick(inside, Qt::Key_Return);
    QTest::keyClick(inside, Qt::Key_Escape);
    EXPECT_EQ(window.keys, (std::vector<int>{Qt::Key_Return, Qt::Key_Escape}));
    EXPECT_EQ(inside->value(), 4);
}

TEST_F(ComponentStepper, isASpinButtonForTheScreenReader) {
    stepper.setNumber(5);
    EXPECT_EQ(accessibleNameOf(stepper), u"Stunden"_s);
    EXPECT_EQ(interface().role(), QAccessible::SpinBox);
    QAccessibleValueInterface* const value = interface().valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 5);
    EXPECT_EQ(value->minimumValue().toInt(), 0);
    EXPECT_EQ(value->maximumValue().toInt(), 23);
    EXPECT_EQ(value->minimumStepSize().toInt(), 1);
}

TEST_F(ComponentStepper, theScreenReaderReadsTheNumberWithItsUnit) {
    stepper.setNumber(5);
    ASSERT_NE(interface().textInterface(), nullptr);
    EXPECT_EQ(interface().textInterface()->text(0, 2), u"5h"_s);
    EXPECT_EQ(interface().text(QAccessible::Value), u"5h"_s);
}

TEST_F(ComponentStepper, theScreenReaderCanSetTheNumber) {
    interface().valueInterface()->setCurrentValue(9);
    EXPECT_EQ(told, std::vector{9});
}

} // namespace
} // namespace brisklog::test
