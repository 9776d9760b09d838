#include "gallery/Gallery.h"

#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/CountBadge.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/Menu.h"
#include "ui/controls/NavigationButton.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextArea.h"
#include "ui/controls/TextField.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"

#include <QApplication>
#include <QEnterEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int columnGap = 14;

template <class T>
T* hovered(T* widget) {
    QEnterEvent enter({}, {}, {});
    QCoreApplication::sendEvent(widget, &enter);
    return widget;
}

template <class T>
T* pressed(T* widget) {
    widget->setDown(true);
    return widget;
}

template <class T>
T* disabled(T* widget) {
    widget->setEnabled(false);
    return widget;
}

/// Shows the focus as the keyboard would, without moving it there.
template <class T>
T* focused(T* widget) {
    QMetaObject::invokeMethod(
        widget,
        [widget] {
            QFocusEvent late(QEvent::FocusIn, Qt::TabFocusReason);
            QCoreApplication::sendEvent(widget, &late);
        },
        Qt::QueuedConnection);
    return widget;
}

LayoutItem shown(const QString& caption, QWidget* widget) {
    return Column{aligned(new Label(caption, FontRole::caption11, &Palette::secondary), Qt::AlignLeft),
                  space(6), aligned(widget, Qt::AlignLeft | Qt::AlignVCenter)};
}

Row across(std::initializer_list<LayoutItem> items) {
    Row row(items);
    row.spacing(columnGap).add(stretch());
    return row;
}

Label* heading(const QString& text) { return new Label(text, FontRole::body13Semibold); }

template <class T>
T* sized(int width, T* widget) {
    widget->setFixedWidth(width);
    return widget;
}

/// A picture of a separate window, to be shown among the other parts.
QLabel* portrait(QWidget& window) {
    auto* label = new QLabel;
    label->setPixmap(window.grab());
    window.close();
    return label;
}

QLabel* tooltip(QWidget& over) {
    QToolTip::showText({40, 40}, u"Projekteinstellungen"_s, &over);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel"))
            return portrait(*window);
    return new QLabel(u"keine Sprechblase"_s);
}

QLabel* menu(QWidget& over) {
    return portrait(*showMenu(over, {.items = {{.text = u"Exakte Zeiten"_s},
                                               {.text = u"Aufrunden"_s},
                                               {.text = u"Abrunden"_s},
                                               {.text = u"Auf nächste Einheit runden"_s, .isChecked = true}},
                                     .width = 213,
                                     .currentRow = 1}));
}

QLabel* projectMenu(QWidget& over) {
    return portrait(
        *showMenu(over, {.items = {{.text = u"Website-Relaunch Müller & Söhne"_s,
                                    .isChecked = true,
                                    .symbol = u"clock.circle.fill"_s,
                                    .symbolColor = &Palette::blue},
                                   {.text = u"Steuerportal Größmann"_s,
                                    .symbol = u"clock.circle.fill"_s,
                                    .symbolColor = &Palette::orangeFill},
                                   {.text = u"Schulungen Verwaltungshochschule Nordrhein-Westfalen"_s,
                                    .symbol = u"clock.circle.fill"_s},
                                   MenuItem::divider(),
                                   {.text = u"Auto-Tracking"_s, .symbol = u"chart.bar.fill"_s}},
                         .width = 322,
                         .currentRow = 1}));
}

NavigationButton* bar(bool isSelected, bool isDisabled = false) {
    return new NavigationButton({.icon = u"timer"_s,
                                 .label = u"Zeiterfassung"_s,
                                 .action = {},
                                 .isDisabled = isDisabled,
                                 .isSelected = isSelected},
                                NavigationButton::Form::bar);
}

NavigationButton* customer() {
    return new NavigationButton({.icon = u"person.crop.circle"_s, .label = u"Kunde"_s, .action = {}});
}

NavigationButton* invoice(bool accent, bool isDisabled = false) {
    return new NavigationButton({.icon = u"doc.text"_s,
                                 .label = u"Rechnung"_s,
                                 .action = {},
                                 .isDisabled = isDisabled,
                                 .accent = accent});
}

NavigationButton* deleting() {
    return new NavigationButton(
        {.icon = u"trash"_s, .label = u"Löschen"_s, .action = {}, .destructive = true});
}

Button* button(const QString& caption, Button::Kind kind, const QString& symbol = {}) {
    auto* made = new Button(caption, kind);
    if (!symbol.isEmpty())
        made->setSymbol(symbol);
    return made;
}

SymbolButton* trash() {
    return new SymbolButton(u"trash"_s, u"Löschen"_s, SymbolButton::Size::normal,
                            SymbolButton::Purpose::deleting);
}

SymbolButton* gear() { return new SymbolButton(u"gearshape.fill"_s, u"Projekteinstellungen"_s); }

TextField* field(const QString& text) {
    auto* made = new TextField(u"Projektname eingeben"_s);
    made->setValue(text);
    return made;
}

Picker* picker() {
    auto* made = new Picker;
    made->setOptions({u"Aufrunden"_s, u"Abrunden"_s});
    return made;
}

Switch* toggle(bool isOn) {
    auto* made = new Switch(u"Schalter"_s);
    made->setOn(isOn);
    return made;
}

/// As the rows of the invoice sheet paint them.
class CheckBoxes final : public QWidget {
public:
    CheckBoxes() { setFixedSize(40, 28); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        paintCheckBox(painter, {0, 0, 16, height()}, CheckBoxState::empty, Palette::current());
        paintCheckBox(painter, {24, 0, 16, height()}, CheckBoxState::ticked, Palette::current());
    }
};

QWidget* symbolButtons() {
    auto* group = new QWidget;
    Row{gear(), hovered(gear()), trash(), hovered(trash())}.applyTo(*group);
    return group;
}

Stepper* stepper() {
    auto* made = new Stepper(0, 23, u"h"_s, u"Stunden"_s);
    made->setNumber(2);
    return made;
}

DateTimeField* dateField() {
    auto* made = new DateTimeField(u"Datum"_s, Qt::Monday);
    made->setMoment(QDateTime(QDate(2026, 11, 20), QTime(14, 30)));
    return made;
}

Card* card() {
    auto* area = new TextArea(u"Notizen"_s);
    area->setValue(
        u"Bitte überweisen Sie den Betrag ohne Abzug. Die Schulungsunterlagen liegen als PDF bei; Rückfragen gerne jederzeit telefonisch."_s);
    auto* notes = new Button(u"Gespeicherte Notizen"_s);
    notes->setSymbol(u"text.badge.checkmark"_s);
    notes->setOpensMenu();
    const Column content{
        area,
        space(8),
        Row{button(u"Speichern"_s, Button::Kind::secondary, u"square.and.arrow.down"_s), notes, stretch()}
            .spacing(8),
        space(10),
        new Hairline(Hairline::Kind::card),
        space(8),
        Row{new FigureLabel(u"01:24:07"_s, FontRole::title17, &Palette::blue), stretch(),
            new FigureLabel(u"14849.11 €"_s, FontRole::title17)}};
    auto* made = new Card(content, {14, 14, 14, 13});
    made->setFixedWidth(420);
    return made;
}

} // namespace

Gallery::Gallery() {
    setFixedSize(860, 900);
    auto* focusedField = field(u"Köln"_s);
    Column{
        heading(u"NavigationButton, Leiste"_s),
        across({shown(u"ruhend"_s, bar(false)), shown(u"überfahren"_s, hovered(bar(false))),
                shown(u"gewählt"_s, bar(true)), shown(u"gewählt, überfahren"_s, hovered(bar(true))),
                shown(u"gesperrt"_s, bar(false, true)), shown(u"Tastaturfokus"_s, focused(bar(true)))}),
        space(6),
        heading(u"NavigationButton, Zeile"_s),
        across({shown(u"ruhend"_s, customer()), shown(u"überfahren"_s, hovered(customer())),
                shown(u"accent"_s, invoice(true)), shown(u"accent, überfahren"_s, hovered(invoice(true))),
                shown(u"destructive"_s, deleting()), shown(u"destructive, überfahren"_s, hovered(deleting())),
                shown(u"gesperrt"_s, invoice(false, true))}),
        space(6),
        heading(u"Knöpfe"_s),
        across({shown(u"Haupt"_s, button(u"Erstellen"_s, Button::Kind::primary)),
                shown(u"überfahren"_s, hovered(button(u"Erstellen"_s, Button::Kind::primary))),
                shown(u"gedrückt"_s, pressed(button(u"Erstellen"_s, Button::Kind::primary))),
                shown(u"gesperrt"_s, disabled(button(u"Erstellen"_s, Button::Kind::primary))),
                shown(u"Neben"_s, button(u"Abbrechen"_s, Button::Kind::secondary)),
                shown(u"überfahren"_s, hovered(button(u"Abbrechen"_s, Button::Kind::secondary))),
                shown(u"löschend"_s, button(u"Projekt löschen"_s, Button::Kind::destructive, u"trash"_s))}),
        across(
            {shown(u"löschend im Hinweis"_s, button(u"Löschen"_s, Button::Kind::alertDestructive)),
             shown(u"Fokus"_s, focused(button(u"Speichern"_s, Button::Kind::primary))),
             shown(u"Text"_s, button(u"Alle anzeigen"_s, Button::Kind::textual)),
             shown(u"klein"_s, new Button(u"Alle auswählen"_s, Button::Kind::secondary, Button::Size::small)),
             shown(u"Datum"_s, dateField()),
             shown(u"Überschrift"_s, new SectionHeader(u"Aktive Zeiterfassung"_s, u"timer"_s))}),
        space(6),
        heading(u"Felder"_s),
        across({shown(u"leer"_s, sized(160, field({}))), shown(u"Fokus"_s, sized(120, focusedField)),
                shown(u"gesperrt"_s, sized(120, disabled(field(u"Köln"_s)))),
                shown(u"Auswahl"_s, sized(140, picker())), shown(u"Stepper"_s, stepper())}),
        across({shown(u"Schalter aus"_s, toggle(false)), shown(u"an"_s, toggle(true)),
                shown(u"Kästchen"_s, new CheckBoxes), shown(u"Symbolknopf"_s, symbolButtons()),
                shown(u"Sprechblase"_s, tooltip(*this)), shown(u"Zähler"_s, new CountBadge(128)),
                shown(u"Menü"_s, menu(*this))}),
        across({shown(u"Karte"_s, card()), shown(u"Projekte"_s, projectMenu(*this))}),
        stretch(),
    }
        .spacing(10)
        .margins(20)
        .applyTo(*this);
    focusedField->setFocus();
}

void Gallery::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintWindowFrame(painter, rect(), Palette::current());
}

} // namespace brisklog
