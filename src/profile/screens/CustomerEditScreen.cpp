#include "profile/screens/CustomerEditScreen.h"

#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/Picker.h"
#include "ui/controls/TextField.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{500, 600};
constexpr int labelGap = 3;
constexpr int rowGap = 8;
constexpr int columnGap = 12;
constexpr int genderWidth = 120;
constexpr int postalCodeWidth = 96;
constexpr int confirmWidth = 112;

/// A card of rows below its title.
LayoutItem group(const QString& title, const std::vector<LayoutItem>& rows) {
    Column column{};
    for (const LayoutItem& row : rows)
        column.add(row);
    auto* card = new Card(column.spacing(rowGap), {14, 10, 14, 12});
    return Column{Row{space(2), asHeading(new Label(title, FontRole::body13Semibold))}, space(4), card};
}

/// The widget, set to that width.
QWidget* withFixedWidth(QWidget* widget, int width) {
    widget->setFixedWidth(width);
    return widget;
}

} // namespace

CustomerEditScreen::CustomerEditScreen(TimeTrackingStore& timeStore)
    : SheetWindow({}, sheetSize), m_view(timeStore) {
    build();
}

CustomerEditScreen::CustomerEditScreen(TimeTrackingStore& timeStore, const Customer& customer)
    : SheetWindow({}, sheetSize), m_view(timeStore, customer) {
    build();
}

void CustomerEditScreen::build() {
    setTitle(screenText(m_view.title()));
    m_confirm = new Button(screenText(m_view.confirmCaption()), Button::Kind::primary);
    addHeader();
    setBody(makeBody());
    addFooter();
}

QWidget* CustomerEditScreen::makeBody() {
    auto* body = new QWidget;
    Column{basicInformation(), address(), contact(), stretch()}
        .spacing(9)
        .margins({20, 10, 20, 10})
        .applyTo(*body);
    return body;
}

LayoutItem CustomerEditScreen::basicInformation() {
    QWidget* const firstName = field(u"Vorname"_s, m_view.firstName);
    QWidget* const gender = withFixedWidth(genderPicker(), genderWidth);
    // It has the focus first: with the cursor at the end, typing continues the text.
    firstName->findChild<QLineEdit*>()->end(false);
    return group(u"Grundinformationen"_s,
                 {Row{firstName, field(u"Nachname"_s, m_view.name)}.spacing(columnGap),
                  Row{gender, field(u"Firma"_s, m_view.company)}.spacing(columnGap),
                  field(u"Steuernummer / USt-ID"_s, m_view.taxId)});
}

LayoutItem CustomerEditScreen::address() {
    QWidget* const street = field(u"Straße und Hausnummer"_s, m_view.address);
    QWidget* const postalCode = withFixedWidth(field(u"PLZ"_s, m_view.postalCode), postalCodeWidth);
    return group(u"Adresse"_s, {street, Row{postalCode, field(u"Ort"_s, m_view.city)}.spacing(columnGap)});
}

LayoutItem CustomerEditScreen::contact() {
    QWidget* const email = field(u"E-Mail"_s, m_view.email);
    return group(u"Kontakt"_s, {Row{email, field(u"Telefon"_s, m_view.phone)}.spacing(columnGap)});
}

QWidget* CustomerEditScreen::field(const QString& label, Published<std::string>& value) {
    auto* field = new TextField;
    field->setValue(screenText(*value));
    // Shows the beginning of a text that does not fit.
    field->setCursorPosition(0);
    field->onEdited([this, &value](const QString& typed) {
        value = typed.toStdString();
        refreshConfirm();
    });
    return withLabelAbove(label, field, labelGap);
}

QWidget* CustomerEditScreen::genderPicker() {
    auto* picker = new Picker;
    std::vector<QString> words;
    words.reserve(allGenders.size());
    for (const Gender gender : allGenders)
        words.push_back(screenText(salutationWord(gender)));
    picker->setOptions(words);
    const auto* const chosen = std::ranges::find(allGenders, m_view.gender.get());
    picker->setSelectedIndex(static_cast<int>(chosen - allGenders.begin()));
    picker->onChosen([this](int index) { m_view.gender = allGenders.at(static_cast<std::size_t>(index)); });
    return withLabelAbove(u"Geschlecht"_s, picker, labelGap);
}

void CustomerEditScreen::addHeader() {
    auto* cancelButton = new Button(u"Abbrechen"_s, Button::Kind::textual);
    cancelButton->onClick([this] { cancel(); });
    addHeaderWidget(cancelButton);
    // The button's own padding is added to it.
    setHeaderPaddingRight(7);
}

void CustomerEditScreen::addFooter() {
    if (m_view.isEditing()) {
        auto* deleteButton = new Button(u"Löschen"_s, Button::Kind::destructive);
        deleteButton->setSymbol(u"trash"_s);
        deleteButton->onClick([this] { confirmDeleting(); });
        addFooterLeading(deleteButton);
    }
    auto* cancelButton = new Button(u"Abbrechen"_s);
    cancelButton->onClick([this] { cancel(); });
    m_confirm->setMinimumWidth(confirmWidth);
    refreshConfirm();
    m_confirm->onClick([this] { save(); });
    addFooterTrailing(cancelButton);
    addFooterTrailing(m_confirm);
    setMainAction(*m_confirm);
}

void CustomerEditScreen::refreshConfirm() {
    const QString missing = screenText(m_view.missing());
    m_confirm->setEnabled(missing.isEmpty());
    m_confirm->setToolTip(missing);
    m_confirm->setAccessibleDescription(missing);
}

void CustomerEditScreen::save() {
    m_view.saveCustomer();
    closeWhenDone();
}

void CustomerEditScreen::cancel() {
    m_view.cancel();
    closeWhenDone();
}

void CustomerEditScreen::confirmDeleting() {
    m_view.showingDeleteAlert = true;
    SheetWindow& alert = presentAlert(
        *this,
        {.title = u"Kunden löschen?"_s,
         .message = u"Möchten Sie diesen Kunden wirklich löschen? Diese Aktion kann nicht rückgängig "
                    "gemacht werden."_s},
        [this] {
            m_view.deleteCustomer();
            closeWhenDone();
        });
    alert.onClosed([this] { m_view.showingDeleteAlert = false; });
}

void CustomerEditScreen::closeWhenDone() {
    if (!m_view.isPresented)
        dismiss();
}

} // namespace brisklog
