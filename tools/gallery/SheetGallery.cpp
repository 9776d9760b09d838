#include "gallery/SheetGallery.h"

#include "ui/controls/Button.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/TextField.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/Sheets.h"

#include <QApplication>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// A picture of a separate window, to be shown among the other parts.
QLabel* portrait(QWidget& window) {
    QApplication::processEvents();
    auto* label = new QLabel;
    label->setPixmap(window.grab());
    window.close();
    return label;
}

QLabel* alert(QWidget& over) {
    return portrait(presentAlert(over,
                                 {.title = u"Projekt löschen?"_s,
                                  .message = u"Diese Aktion kann nicht rückgängig gemacht werden. Alle "
                                             u"Zeiterfassungen dieses Projekts werden gelöscht."_s},
                                 {}));
}

QLabel* projectSettings(QWidget& over) {
    auto sheet = std::make_unique<SheetWindow>(u"Projekteinstellungen"_s, QSize(400, 252));
    auto* name = new TextField;
    auto* rate = new TextField(u"85,00"_s);
    name->setValue(u"Website-Relaunch Müller & Söhne"_s);
    rate->setValue(u"95.00"_s);
    rate->setFixedWidth(140);
    auto* body = new QWidget;
    Column{withLabelAbove(u"Projektname"_s, name), space(12),
           Row{withLabelAbove(u"Stundensatz (€, optional)"_s, rate), stretch()}, stretch()}
        .margins({20, 16, 20, 20})
        .applyTo(*body);
    auto* deleting = new Button(u"Projekt löschen"_s, Button::Kind::destructive);
    deleting->setSymbol(u"trash"_s);
    sheet->setBody(body);
    sheet->addFooterLeading(deleting);
    sheet->addFooterTrailing(new Button(u"Abbrechen"_s));
    sheet->addFooterTrailing(new Button(u"Speichern"_s, Button::Kind::primary));
    return portrait(presentSheet(over, std::move(sheet)));
}

QLabel* saveNote(QWidget& over) {
    auto sheet =
        std::make_unique<SheetWindow>(u"Notiz speichern"_s, QSize(400, 150), SheetWindow::Chrome::bare);
    auto* name = new TextField;
    name->setValue(u"Zahlungshinweis für Stammk"_s);
    auto* body = new QWidget;
    Column{
        new Label(u"Notiz speichern"_s, FontRole::heading15),
        new Label(u"Geben Sie einen Namen für die Notiz ein:"_s, FontRole::tab12, &Palette::secondary),
        space(8),
        name,
        stretch(),
        Row{stretch(), new Button(u"Abbrechen"_s), new Button(u"Speichern"_s, Button::Kind::primary)}.spacing(
            8)}
        .margins({16, 13, 16, 12})
        .applyTo(*body);
    sheet->setBody(body, SheetWindow::Body::fixed);
    return portrait(presentSheet(over, std::move(sheet)));
}

QLabel* customers(QWidget& over) {
    auto sheet = std::make_unique<SheetWindow>(u"Kundenverwaltung"_s, QSize(460, 420));
    sheet->setBody(new EmptyState(
        {.symbol = u"person.crop.circle.badge.questionmark"_s,
         .headline = u"Keine Kunden vorhanden"_s,
         .sentence = u"Erstellen Sie Kundenprofile, um diese bei der Rechnungserstellung auszuwählen."_s,
         .buttonCaption = u"Ersten Kunden anlegen"_s,
         .action = [] {}},
        EmptyState::Place::sheet));
    sheet->addCloseButton(u"Schließen"_s);
    return portrait(presentSheet(over, std::move(sheet)));
}

QLabel* month() {
    DateTimeField field(u"Datum"_s, Qt::Monday);
    field.setMoment(QDateTime(QDate(2026, 11, 20), QTime(14, 30)));
    field.show();
    return portrait(*field.showCalendar());
}

} // namespace

SheetGallery::SheetGallery() {
    Row{Column{alert(*this), projectSettings(*this), saveNote(*this), stretch()}.spacing(20),
        Column{customers(*this), month(), stretch()}.spacing(20), stretch()}
        .spacing(20)
        .margins(20)
        .applyTo(*this);
}

} // namespace brisklog
