// What components are to a screen reader, and what it can do with them.

#include "support/screen/ScreenReader.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/Button.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/Menu.h"
#include "ui/controls/NavigationButton.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextField.h"
#include "ui/lists/RowDelegate.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"

#include <QPointer>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

const QString& press = QAccessibleActionInterface::pressAction();
const QString& toggle = QAccessibleActionInterface::toggleAction();
const QString& setFocus = QAccessibleActionInterface::setFocusAction();
const QString& showMenuOf = QAccessibleActionInterface::showMenuAction();

class ComponentScreenReader : public ScreenTest {
protected:
    ScreenReader reader;
};

TEST_F(ComponentScreenReader, pressIsAClick) {
    Button button(u"Start"_s);
    int clicks = 0;
    button.onClick([&clicks] { ++clicks; });
    EXPECT_EQ(reader.actionsOf(reader.of(button)), (QStringList{press, setFocus}));
    reader.act(reader.of(button), press);
    EXPECT_EQ(clicks, 1);
    button.setEnabled(false);
    EXPECT_EQ(reader.actionsOf(reader.of(button)), QStringList());
}

TEST_F(ComponentScreenReader, mayPressWhatTheClickDestroys) {
    QPointer<Button> button = new Button(u"Stoppen"_s);
    button->onClick([button] { delete button; });
    reader.act(reader.of(*button), press);
    EXPECT_TRUE(button.isNull());
}

TEST_F(ComponentScreenReader, toggleSwitchesLikeAClick) {
    Switch tracking(u"Automatische Zeiterfassung"_s);
    std::vector<bool> switched;
    tracking.onToggled([&switched](bool isOn) { switched.push_back(isOn); });
    EXPECT_EQ(reader.actionsOf(reader.of(tracking)), (QStringList{toggle, setFocus}));
    reader.act(reader.of(tracking), toggle);
    EXPECT_EQ(switched, std::vector{true});
    EXPECT_TRUE(reader.of(tracking).state().checked);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, u"Automatische Zeiterfassung"_s), 1);
}

TEST_F(ComponentScreenReader, focusIsShownWithItsRing) {
    QWidget window;
    auto* const button = new Button(u"Start"_s);
    Row{new TextField, button}.applyTo(window);
    showActive(window);
    const auto before = window.findChildren<QWidget*>().size();
    reader.act(reader.of(*button), setFocus);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_GT(window.findChildren<QWidget*>().size(), before);
}

TEST_F(ComponentScreenReader, isToldATooltipOnce) {
    SymbolButton trash(u"trash"_s, u"Alle Einträge löschen"_s);
    EXPECT_EQ(reader.of(trash).text(QAccessible::Name), u"Alle Einträge löschen"_s);
    EXPECT_EQ(reader.of(trash).text(QAccessible::Description), QString());
}

TEST_F(ComponentScreenReader, sectionsAreTabsOfWhichOneIsSelected) {
    NavigationButton profile({.icon = u"person.fill"_s, .label = u"Profil"_s, .action = {}},
                             NavigationButton::Form::bar);
    EXPECT_EQ(reader.roleOf(profile), QAccessible::PageTab);
    EXPECT_TRUE(reader.of(profile).state().selectable);
    EXPECT_FALSE(reader.of(profile).state().selected);
    profile.setSelected(true);
    EXPECT_TRUE(reader.of(profile).state().selected);
    EXPECT_EQ(reader.count(QAccessible::SelectionAdd, u"Profil"_s), 1);
    profile.setSelected(false);
    EXPECT_EQ(reader.count(QAccessible::SelectionRemove, u"Profil"_s), 1);
}

TEST_F(ComponentScreenReader, headingsAreHeadings) {
    SectionHeader section(u"Firmenlogo"_s, u"photo"_s);
    EXPECT_EQ(reader.roleOf(section), QAccessible::Heading);
    EXPECT_EQ(accessibleNameOf(section), u"Firmenlogo"_s);
    const std::unique_ptr<Label> title(asHeading(new Label(u"Profil"_s)));
    EXPECT_EQ(reader.roleOf(*title), QAccessible::Heading);
    EXPECT_EQ(accessibleNameOf(*title), u"Profil"_s);
    EXPECT_EQ(reader.roleOf(*std::make_unique<Label>(u"Profil"_s)), QAccessible::StaticText);
}

TEST_F(ComponentScreenReader, windowsAreFramesAndSheetsAreModalDialogs) {
    QWidget window;
    EXPECT_EQ(reader.roleOf(window), QAccessible::Window);
    SheetWindow sheet(u"Neues Projekt"_s, {400, 200});
    sheet.setWindowModality(Qt::WindowModal);
    EXPECT_EQ(reader.roleOf(sheet), QAccessible::Dialog);
    EXPECT_TRUE(reader.of(sheet).state().modal);
    QWidget picker(&window, Qt::Dialog);
    EXPECT_EQ(reader.roleOf(picker), QAccessible::Dialog);
}

TEST_F(ComponentScreenReader, stacksAndProxiesAreNothingOfTheirOwn) {
    QWidget window;
    EXPECT_EQ(reader.roleOf(*new QStackedWidget(&window)), QAccessible::Client);
    auto* const around = new QWidget;
    auto* const field = new TextField;
    Row{field}.applyTo(*around);
    around->setFocusProxy(field);
    Row{around}.applyTo(window);
    showActive(window);
    field->setFocus();
    EXPECT_TRUE(reader.of(*field).state().focused);
    EXPECT_FALSE(reader.of(*around).state().focused);
}

TEST_F(ComponentScreenReader, hearsAnnouncementsOneAfterTheOther) {
    QWidget window;
    auto* const part = new QWidget(&window);
    announce(*part, u"Timer gestartet: Entwurf"_s);
    announce(*part, u"Timer gestartet: Entwurf"_s);
    announce(*part, QString());
    EXPECT_EQ(reader.announced(),
              (QStringList{u"Timer gestartet: Entwurf"_s, u"Timer gestartet: Entwurf"_s}));
}

TEST_F(ComponentScreenReader, findsAnnouncementsInTheWindowsStatusBar) {
    QWidget window;
    announce(window, u"Erste"_s);
    announce(window, u"Zweite"_s);
    auto& found = reader.of(window);
    QAccessibleInterface* const status = found.child(found.childCount() - 1);
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->role(), QAccessible::StatusBar);
    ASSERT_EQ(status->childCount(), 2);
    EXPECT_EQ(status->child(1)->text(QAccessible::Name), u"Zweite"_s);
    EXPECT_EQ(status->child(1)->parent(), status);
    EXPECT_EQ(status->parent(), &found);
    EXPECT_EQ(status->indexOfChild(status->child(1)), 1);
    EXPECT_EQ(found.indexOfChild(status), found.childCount() - 1);
    EXPECT_FALSE(status->child(1)->state().invisible);
}

/// In a dialog, screen readers would say all of it before each announcement.
TEST_F(ComponentScreenReader, hearsWhatASheetAnnouncesFromTheWindowBelow) {
    QWidget popover;
    SheetWindow sheet(u"Rechnung erstellen"_s, {400, 200});
    sheet.setParent(&popover, sheet.windowFlags());
    announce(sheet, u"Rechnung erstellt"_s);
    EXPECT_EQ(reader.announced(), QStringList{u"Rechnung erstellt"_s});
    auto& found = reader.of(popover);
    EXPECT_EQ(found.child(found.childCount() - 1)->role(), QAccessible::StatusBar);
}

TEST_F(ComponentScreenReader, keepsOnlyTheLastAnnouncements) {
    QWidget window;
    for (int i = 0; i < 100; ++i)
        announce(window, QString::number(i));
    auto& found = reader.of(window);
    EXPECT_LT(found.child(found.childCount() - 1)->childCount(), 10);
    EXPECT_EQ(reader.announced().size(), 100);
}

class PickerForScreenReader : public ComponentScreenReader {
protected:
    PickerForScreenReader() {
        picker.setAccessibleName(u"Farbschema"_s);
        picker.setOptions({u"Hell"_s, u"Dunkel"_s});
        showActive(picker);
        reader.forget();
    }

    Picker picker;
};

TEST_F(PickerForScreenReader, isAComboBoxWhoseTextIsTheChoice) {
    auto& found = reader.of(picker);
    EXPECT_EQ(found.role(), QAccessible::ComboBox);
    EXPECT_EQ(found.text(QAccessible::Name), u"Farbschema"_s);
    EXPECT_EQ(found.text(QAccessible::Value), u"Hell"_s);
    ASSERT_NE(found.textInterface(), nullptr);
    EXPECT_EQ(found.textInterface()->text(0, found.textInterface()->characterCount()), u"Hell"_s);
}

/// Screen readers speak inserted text where it is selected.
TEST_F(PickerForScreenReader, announcesTheChoiceThatAnArrowKeyMakes) {
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(reader.count(QAccessible::TextInserted, u"Farbschema"_s), 1);
    const auto& text = *reader.of(picker).textInterface();
    int start = -1;
    int end = -1;
    text.selection(0, &start, &end);
    EXPECT_EQ(text.text(start, end), u"Dunkel"_s);
}

TEST_F(PickerForScreenReader, opensItsMenu) {
    EXPECT_TRUE(reader.of(picker).state().collapsed);
    EXPECT_EQ(reader.actionsOf(reader.of(picker)), (QStringList{showMenuOf, setFocus}));
    reader.act(reader.of(picker), showMenuOf);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(reader.of(picker).state().expanded);
    picker.hidePopup();
}

TEST_F(PickerForScreenReader, choosesInTheMenu) {
    reader.act(reader.of(picker), showMenuOf);
    QWidget& menu = *QApplication::activePopupWidget();
    EXPECT_EQ(reader.roleOf(menu), QAccessible::PopupMenu);
    EXPECT_EQ(reader.of(menu).parent(), &reader.of(picker));
    auto& rows = reader.of(*menu.findChild<QListView*>());
    ASSERT_EQ(rows.childCount(), 2);
    EXPECT_EQ(rows.child(0)->role(), QAccessible::MenuItem);
    EXPECT_TRUE(rows.child(0)->state().checked);
    EXPECT_FALSE(rows.child(1)->state().checked);
    reader.act(*rows.child(1), press);
    EXPECT_EQ(picker.selectedIndex(), 1);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// Paints nothing.
class PlainDelegate final : public RowDelegate {
public:
    explicit PlainDelegate(RowList& list) : RowDelegate(list) {}

protected:
    void paintRow(QPainter&, const PaintedRow&) const override {}

    [[nodiscard]] QSize sizeOf(const QModelIndex&) const override { return {0, 30}; }
};

TEST_F(ComponentScreenReader, namesAMenuAfterWhatOpensIt) {
    QWidget window;
    auto* const button = new Button(u"Gespeicherte Notizen"_s);
    Row{button}.applyTo(window);
    showActive(window);
    QPointer<QWidget> menu = showMenu(*button, {.items = {{.text = u"Dank"_s}}});
    EXPECT_EQ(accessibleNameOf(*menu), u"Gespeicherte Notizen"_s);
    auto& rows = reader.of(*menu->findChild<QListView*>());
    EXPECT_EQ(rows.text(QAccessible::Name), u"Gespeicherte Notizen"_s);
    EXPECT_FALSE(rows.child(0)->state().checkable);
    menu->close();
}

TEST_F(ComponentScreenReader, stepsTheDayOfADateField) {
    DateTimeField field(u"Datum:"_s, Qt::Monday);
    std::vector<QDateTime> edited;
    field.setMoment(QDateTime(QDate(2026, 11, 20), QTime(14, 30), Qt::UTC));
    field.onEdited([&edited](const QDateTime& moment) { edited.push_back(moment); });
    reader.forget();
    auto& day = *reader.of(field).valueInterface();
    day.setCurrentValue(day.currentValue().toDouble() + day.minimumStepSize().toDouble());
    ASSERT_EQ(edited.size(), 1U);
    EXPECT_EQ(edited[0].toString(u"dd.MM.yyyy HH:mm"_s), u"21.11.2026 14:30"_s);
    EXPECT_EQ(reader.count(QAccessible::ValueChanged, u"Datum:"_s), 1);
}

class RowsForScreenReader : public ComponentScreenReader {
protected:
    RowsForScreenReader() {
        for (const QString& name : {u"Alpha"_s, u"Beta"_s, u"Gamma"_s})
            model.appendRow(new QStandardItem(name));
        list->setAccessibleName(u"Einträge"_s);
        list->setRows(model, *new PlainDelegate(*list));
        Row{new TextField, list}.applyTo(window);
        window.resize(400, 300);
        showActive(window);
    }

    [[nodiscard]] QAccessibleInterface& row(int index) { return *reader.of(*list).child(index); }

    QStandardItemModel model;
    QWidget window;
    RowList* list = new RowList;
};

TEST_F(RowsForScreenReader, offerNothingWhereAClickDoesNothing) {
    EXPECT_EQ(reader.roleOf(*list), QAccessible::List);
    EXPECT_EQ(row(1).role(), QAccessible::ListItem);
    EXPECT_EQ(row(1).text(QAccessible::Name), u"Beta"_s);
    EXPECT_EQ(reader.actionsOf(row(1)), QStringList{setFocus});
}

TEST_F(RowsForScreenReader, pressIsAClickOnTheRow) {
    std::vector<int> clicked;
    list->onClicked([&clicked](const QModelIndex& index) { clicked.push_back(index.row()); });
    reader.act(row(2), press);
    EXPECT_EQ(clicked, std::vector{2});
    model.item(1)->setEnabled(false);
    EXPECT_EQ(reader.actionsOf(row(1)), QStringList());
}

TEST_F(RowsForScreenReader, onlyTheCurrentRowOfTheFocusedListIsFocused) {
    list->setCurrentIndex(model.index(1, 0));
    EXPECT_FALSE(row(1).state().focused);
    reader.act(row(1), setFocus);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_TRUE(row(1).state().focused);
    EXPECT_FALSE(row(0).state().focused);
    EXPECT_GE(reader.count(QAccessible::Focus, u"Beta"_s), 1);
    EXPECT_EQ(reader.events().back().name, u"Beta"_s);
}

TEST_F(RowsForScreenReader, announceTheirTick) {
    model.item(0)->setCheckable(true);
    EXPECT_TRUE(row(0).state().checkable);
    EXPECT_FALSE(row(1).state().checkable);
    reader.forget();
    model.item(0)->setCheckState(Qt::Checked);
    EXPECT_TRUE(row(0).state().checked);
    ASSERT_EQ(reader.count(QAccessible::StateChanged, u"Alpha"_s), 1);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, u"Beta"_s), 0);
    model.item(1)->setText(u"Beta 2"_s);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, u"Alpha"_s), 1);
    EXPECT_EQ(reader.count(QAccessible::NameChanged, u"Beta 2"_s), 1);
}

TEST_F(RowsForScreenReader, stayTheSameWhileOthersComeAndGo) {
    QAccessibleInterface* const beta = &row(1);
    const QAccessible::Id id = QAccessible::uniqueId(beta);
    model.insertRow(0, new QStandardItem(u"Neu"_s));
    EXPECT_EQ(&row(2), beta);
    EXPECT_EQ(row(1).text(QAccessible::Name), u"Alpha"_s);
    EXPECT_EQ(reader.of(*list).indexOfChild(beta), 2);
    model.removeRow(0);
    EXPECT_EQ(&row(1), beta);
    model.removeRow(1);
    EXPECT_EQ(row(1).text(QAccessible::Name), u"Gamma"_s);
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(RowsForScreenReader, areGoneWithTheirModel) {
    const QAccessible::Id id = QAccessible::uniqueId(&row(1));
    model.clear();
    EXPECT_EQ(reader.of(*list).childCount(), 0);
    EXPECT_EQ(reader.of(*list).child(0), nullptr);
    QAccessibleInterface* const gone = QAccessible::accessibleInterface(id);
    EXPECT_TRUE(gone == nullptr || !gone->isValid());
}

} // namespace
} // namespace brisklog::test
