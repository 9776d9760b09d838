// What menus, calendars, tooltips, alerts and sheets look like, and what floats over lists.

#include "support/screen/Drawing.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/Button.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/Menu.h"
#include "ui/controls/Picker.h"
#include "ui/controls/TextField.h"
#include "ui/lists/FloatingScrollBar.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Layout.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/Sheets.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class WindowsDrawn : public ScreenTest {
protected:
    WindowsDrawn() {
        window.resize(370, 300);
        showActive(window);
    }

    QWidget window;
};

TEST_F(WindowsDrawn, menu) {
    QWidget* const menu =
        showMenu(window, {.items = {{.text = u"Website-Relaunch"_s,
                                     .isChecked = true,
                                     .symbol = u"clock.circle.fill"_s,
                                     .symbolColor = &Palette::blue},
                                    {.text = u"Steuerportal"_s,
                                     .symbol = u"clock.circle.fill"_s,
                                     .symbolColor = &Palette::orangeFill},
                                    MenuItem::divider(),
                                    {.text = u"Nicht wählbar"_s, .isEnabled = false},
                                    {.text = u"Ein Eintrag, der nicht in die Zeile passt"_s}},
                          .width = 200,
                          .currentRow = 1});
    settle();
    expectDrawn(*menu, u"window-menu"_s);
}

TEST_F(WindowsDrawn, openPicker) {
    Picker picker;
    picker.setOptions({u"Keine Rundung"_s, u"5 Minuten"_s, u"10 Minuten"_s});
    picker.setSelectedIndex(1);
    showActive(picker);
    picker.showPopup();
    settle();
    expectDrawn(*QApplication::activePopupWidget(), u"window-open-picker"_s);
}

TEST_F(WindowsDrawn, calendarOfADateField) {
    DateTimeField field(u"Datum"_s, Qt::Monday);
    field.setMoment(QDateTime(QDate(2026, 11, 20), QTime(14, 30)));
    showActive(field);
    QWidget* const month = field.showCalendar();
    settle();
    QTest::keyClick(month, Qt::Key_Right);
    const QPointF onTheSecond(20, 100);
    QMouseEvent move(QEvent::MouseMove, onTheSecond, month->mapToGlobal(onTheSecond), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(month, &move);
    expectDrawn(*month, u"window-month"_s);
}

TEST_F(WindowsDrawn, tooltip) {
    QToolTip::showText({40, 40}, u"Projekteinstellungen"_s, &window);
    for (QWidget* const shown : QApplication::topLevelWidgets())
        if (shown->inherits("QTipLabel"))
            return expectDrawn(*shown, u"window-tooltip"_s);
    FAIL() << "no tooltip";
}

TEST_F(WindowsDrawn, alert) {
    SheetWindow& alert = presentAlert(
        window, {.title = u"Projekt löschen?"_s, .message = u"Alle Zeiten werden gelöscht."_s}, {});
    settle();
    expectDrawn(alert, u"window-alert"_s);
}

TEST_F(WindowsDrawn, sheet) {
    auto made =
        std::make_unique<SheetWindow>(u"Projekteinstellungen mit einem langen Titel"_s, QSize(300, 200));
    made->setBody(new TextField(u"Name"_s));
    made->addCloseButton(u"Schließen"_s);
    made->addFooterLeading(new Button(u"Löschen"_s, Button::Kind::destructive));
    made->addFooterTrailing(new Button(u"Sichern"_s, Button::Kind::primary));
    SheetWindow& sheet = presentSheet(window, std::move(made));
    settle();
    expectDrawn(sheet, u"window-sheet"_s);
}

TEST_F(WindowsDrawn, scrollBar) {
    auto* const content = new QWidget;
    content->setFixedHeight(900);
    ScrollArea area(content);
    area.resize(200, 300);
    showActive(area);
    DrawnStates states;
    states.add(u"pointer elsewhere"_s, area);
    hover(area);
    area.verticalScrollBar()->setValue(300);
    settle();
    states.add(u"pointer over the page, scrolled halfway"_s, area);
    for (QWidget* const part : area.findChildren<QWidget*>())
        if (dynamic_cast<FloatingScrollBar*>(part) != nullptr)
            hover(*part);
    states.add(u"pointer on the bar"_s, area);
    states.expectAccepted(u"window-scroll-bar"_s);
}

} // namespace
} // namespace brisklog::test
