#include "ui/controls/Menu.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/Picker.h"

#include <QAccessible>
#include <QListView>
#include <QPointer>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentMenu : public ScreenTest {
protected:
    ComponentMenu() { anchor.resize(120, 28); }

    QWidget& open(const MenuContent& content) {
        showActive(anchor);
        auto* popup = showMenu(anchor, content);
        m_popup = popup;
        settle();
        return *popup;
    }

    [[nodiscard]] MenuItem row(const QString& text) {
        return {.text = text, .chosen = [this, text] { chosen.push_back(text); }};
    }

    [[nodiscard]] MenuContent projects() {
        return {.items = {row(u"Alpha"_s), row(u"Beta"_s), MenuItem::divider(), row(u"Gamma"_s)}};
    }

    [[nodiscard]] static QListView& list(QWidget& popup) { return *popup.findChild<QListView*>(); }

    [[nodiscard]] static int currentRow(QWidget& popup) { return list(popup).currentIndex().row(); }

    static void press(QWidget& popup, Qt::Key key) { QTest::keyClick(&list(popup), key); }

    [[nodiscard]] bool isOpen() {
        settle();
        return !m_popup.isNull();
    }

    QWidget anchor;
    QStringList chosen;

private:
    QPointer<QWidget> m_popup;
};

TEST_F(ComponentMenu, startsAtTheCheckedRow) {
    MenuContent content = projects();
    content.items[1].isChecked = true;
    EXPECT_EQ(currentRow(open(content)), 1);
}

/// The names of everything a screen reader finds from `root` down.
QStringList namesUnder(const QAccessibleInterface& root) {
    QStringList names{root.text(QAccessible::Name)};
    for (int i = 0; i < root.childCount(); ++i)
        if (const auto* child = root.child(i))
            names += namesUnder(*child);
    return names;
}

TEST_F(ComponentMenu, isFoundByAScreenReaderFromItsWindow) {
    QPointer<QWidget> popup = &open(projects());
    auto* const window = QAccessible::queryAccessibleInterface(&anchor);
    EXPECT_TRUE(namesUnder(*window).contains(u"Beta"_s));
    auto* const menu = QAccessible::queryAccessibleInterface(popup.data());
    EXPECT_EQ(window->indexOfChild(menu), window->childCount() - 1);
    press(*popup, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(namesUnder(*window).contains(u"Beta"_s));
}

TEST_F(ComponentMenu, arrowsStepOverDividersAndRoundTheEnds) {
    QWidget& popup = open(projects());
    EXPECT_EQ(currentRow(popup), 0);
    press(popup, Qt::Key_Down);
    press(popup, Qt::Key_Down);
    EXPECT_EQ(currentRow(popup), 3);
    press(popup, Qt::Key_Down);
    EXPECT_EQ(currentRow(popup), 0);
    press(popup, Qt::Key_Up);
    EXPECT_EQ(currentRow(popup), 3);
    press(popup, Qt::Key_Home);
    EXPECT_EQ(currentRow(popup), 0);
    press(popup, Qt::Key_End);
    EXPECT_EQ(currentRow(popup), 3);
}

TEST_F(ComponentMenu, typedLettersFindARow) {
    QWidget& popup = open(projects());
    QTest::keyClicks(&list(popup), u"ga"_s);
    EXPECT_EQ(currentRow(popup), 3);
}

TEST_F(ComponentMenu, returnChoosesAfterItHasClosed) {
    QWidget& popup = open(projects());
    press(popup, Qt::Key_Down);
    press(popup, Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{u"Beta"_s});
    EXPECT_FALSE(isOpen());
}

TEST_F(ComponentMenu, escapeClosesWithoutChoosing) {
    press(open(projects()), Qt::Key_Escape);
    EXPECT_TRUE(chosen.isEmpty());
    EXPECT_FALSE(isOpen());
}

TEST_F(ComponentMenu, aClickChoosesARowButNotADivider) {
    QWidget& popup = open(projects());
    QListView& rows = list(popup);
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {},
                      rows.visualRect(rows.model()->index(2, 0)).center());
    EXPECT_TRUE(chosen.isEmpty());
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {},
                      rows.visualRect(rows.model()->index(3, 0)).center());
    EXPECT_EQ(chosen, QStringList{u"Gamma"_s});
    EXPECT_FALSE(isOpen());
}

TEST_F(ComponentMenu, showsAtMostItsVisibleRowsAndScrollsTheRest) {
    MenuContent content;
    for (int i = 0; i < 40; ++i)
        content.items.push_back(row(QString::number(i)));
    content.currentRow = 30;
    QWidget& popup = open(content);
    EXPECT_EQ(popup.height(), 14 * 28 + 8);
    QListView& rows = list(popup);
    EXPECT_TRUE(rows.viewport()->rect().contains(rows.visualRect(rows.model()->index(30, 0))));
}

TEST_F(ComponentMenu, isNoHigherThanTheScreen) {
    MenuContent content;
    for (int i = 0; i < 40; ++i)
        content.items.push_back(row(QString::number(i)));
    content.maximumVisibleRows = 40;
    QWidget& popup = open(content);
    EXPECT_TRUE(popup.screen()->availableGeometry().contains(popup.geometry()));
    press(popup, Qt::Key_End);
    QListView& rows = list(popup);
    EXPECT_TRUE(rows.viewport()->rect().contains(rows.visualRect(rows.model()->index(39, 0))));
}

TEST_F(ComponentMenu, hasRowsOfTwentyEightAndIsAsWideAsItsAnchor) {
    QWidget& popup = open({.items = {row(u"a"_s), row(u"b"_s)}});
    EXPECT_EQ(popup.size(), QSize(120, 2 * 28 + 8));
}

TEST_F(ComponentMenu, anActionMayDestroyTheAnchor) {
    auto* doomed = new QWidget;
    showActive(*doomed);
    QPointer<QWidget> popup =
        showMenu(*doomed, {.items = {{.text = u"x"_s, .chosen = [doomed] { delete doomed; }}}});
    QTest::keyClick(popup->findChild<QListView*>(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(popup.isNull());
}

class ComponentPicker : public ScreenTest {
protected:
    ComponentPicker() {
        picker.setAccessibleName(u"Kunde auswählen"_s);
        picker.setOptions({u"Bitte auswählen"_s, u"Größmann"_s, u"Müller"_s});
        picker.onChosen([this](int index) { chosen.push_back(index); });
        picker.resize(200, 32);
    }

    [[nodiscard]] static QWidget* popup() { return QApplication::activePopupWidget(); }

    Picker picker;
    std::vector<int> chosen;
};

TEST_F(ComponentPicker, opensWithSpaceReturnAltDownAndClick) {
    showActive(picker);
    for (const auto& [key, modifier] :
         {std::pair{Qt::Key_Space, Qt::NoModifier}, std::pair{Qt::Key_Return, Qt::NoModifier},
          std::pair{Qt::Key_Down, Qt::AltModifier}}) {
        QTest::keyClick(&picker, key, modifier);
        ASSERT_NE(popup(), nullptr) << key;
        EXPECT_EQ(popup()->width(), picker.width());
        QTest::keyClick(popup()->findChild<QListView*>(), Qt::Key_Escape);
        settle();
        EXPECT_EQ(popup(), nullptr);
    }
    QTest::mouseClick(&picker, Qt::LeftButton);
    EXPECT_NE(popup(), nullptr);
    picker.hidePopup();
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ComponentPicker, choosesInTheMenu) {
    showActive(picker);
    QTest::keyClick(&picker, Qt::Key_Space);
    QListView* rows = popup()->findChild<QListView*>();
    QTest::keyClick(rows, Qt::Key_Down);
    QTest::keyClick(rows, Qt::Key_Return);
    EXPECT_EQ(chosen, std::vector{1});
    EXPECT_EQ(picker.selectedIndex(), 1);
}

TEST_F(ComponentPicker, arrowsAndLettersChooseWithoutOpening) {
    showActive(picker);
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(picker.selectedIndex(), 1);
    QTest::keyClicks(&picker, u"m"_s);
    EXPECT_EQ(picker.selectedIndex(), 2);
    EXPECT_EQ(popup(), nullptr);
    EXPECT_EQ(chosen, (std::vector{1, 2}));
}

TEST_F(ComponentPicker, settingItTellsNobody) {
    picker.setSelectedIndex(2);
    EXPECT_EQ(picker.selectedIndex(), 2);
    picker.setOptions({u"Bitte auswählen"_s, u"Größmann"_s});
    EXPECT_EQ(picker.selectedIndex(), 0);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ComponentPicker, keepsItsChoiceWhenTheOptionsComeAgain) {
    picker.setSelectedIndex(1);
    picker.setOptions({u"Bitte auswählen"_s, u"Größmann"_s, u"Müller"_s, u"Özdemir"_s});
    EXPECT_EQ(picker.selectedIndex(), 1);
}

TEST_F(ComponentPicker, leavesTheWheelToTheScreen) {
    showActive(picker);
    const QPointF middle = picker.rect().center();
    QWheelEvent wheel(middle, picker.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&picker, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(picker.selectedIndex(), 0);
}

TEST_F(ComponentPicker, isNamedForTheScreenReader) {
    EXPECT_EQ(accessibleNameOf(picker), u"Kunde auswählen"_s);
}

} // namespace
} // namespace brisklog::test
