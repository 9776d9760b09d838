// The form that creates, changes and deletes a customer.

#include "screens/profile/CustomerSheetWindow.h"
#include "ui/controls/Picker.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class CustomerForm : public CustomerSheetWindow {
protected:
    void openForNew() {
        open();
        click(*sheet, u"Neuer Kunde"_s);
    }

    void openFor(const Customer& customer) {
        addCustomer(customer);
        open();
        clickRow(0);
    }

    [[nodiscard]] Picker& gender() { return *findFirst<Picker>(*form()); }

    [[nodiscard]] QAbstractButton& confirm() {
        return button(*form(), isNew() ? u"Hinzufügen"_s : u"Aktualisieren"_s);
    }

    [[nodiscard]] bool isNew() { return form()->windowTitle() == u"Neuer Kunde"_s; }

    [[nodiscard]] const Customer& onlyCustomer() const { return content.store.customers.get().at(0); }

    /// Opens the question that precedes a deletion.
    void openAlert() {
        click(*form(), u"Löschen"_s);
        alert = QApplication::activeModalWidget();
    }

    QPointer<QWidget> alert;
};

TEST_F(CustomerForm, aNewCustomersFormIsEmptyStartsAtDiversAndOffersNoDeletion) {
    openForNew();
    EXPECT_EQ(form()->size(), QSize(500, 600));
    for (auto* const field : form()->findChildren<QLineEdit*>())
        EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(gender().currentText(), u"Divers"_s);
    EXPECT_EQ(findNamed<QAbstractButton>(*form(), u"Löschen"_s), nullptr);
    EXPECT_FALSE(confirm().isEnabled());
}

TEST_F(CustomerForm, theDisabledButtonSaysWhatIsMissing) {
    openForNew();
    EXPECT_EQ(confirm().toolTip(), u"Bitte zuerst den Nachnamen eingeben."_s);
    EXPECT_EQ(confirm().accessibleDescription(), u"Bitte zuerst den Nachnamen eingeben."_s);
    QTest::keyClicks(&field(u"Nachname"_s), u"Adler"_s);
    EXPECT_TRUE(confirm().isEnabled());
    EXPECT_EQ(confirm().toolTip(), QString());
    EXPECT_EQ(confirm().accessibleDescription(), QString());
    field(u"Nachname"_s).selectAll();
    QTest::keyClick(&field(u"Nachname"_s), Qt::Key_Delete);
    EXPECT_EQ(confirm().toolTip(), u"Bitte zuerst den Nachnamen eingeben."_s);
}

TEST_F(CustomerForm, offersTheGendersInTheirOrder) {
    openForNew();
    ASSERT_EQ(gender().count(), 3);
    EXPECT_EQ(gender().itemText(0), u"Herr"_s);
    EXPECT_EQ(gender().itemText(1), u"Frau"_s);
    EXPECT_EQ(gender().itemText(2), u"Divers"_s);
    EXPECT_EQ(accessibleNameOf(gender()), u"Geschlecht"_s);
}

TEST_F(CustomerForm, everythingIsSeenWithoutScrolling) {
    openFor(wordyCustomer());
    const auto* const area = form()->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(shows(*form(), u"Grundinformationen"_s));
    EXPECT_TRUE(shows(*form(), u"Adresse"_s));
    EXPECT_TRUE(shows(*form(), u"Kontakt"_s));
}

TEST_F(CustomerForm, onALowScreenTheLastCardDoesNotEndAtTheFooter) {
    openForNew();
    form()->setFixedSize(500, 400);
    settle();
    const auto* const area = form()->findChild<QScrollArea*>();
    ASSERT_GT(area->verticalScrollBar()->maximum(), 0);
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    const QLineEdit& last = field(u"Telefon"_s);
    const int fieldEnd = last.mapTo(area->viewport(), QPoint(0, last.height())).y();
    constexpr int paddingAndShadowOfTheCard = 13;
    EXPECT_EQ(area->viewport()->height() - fieldEnd - paddingAndShadowOfTheCard, 10);
}

TEST_F(CustomerForm, theTextButtonInTheHeaderEndsBesideTheRightEdge) {
    openForNew();
    int rightmost = 0;
    for (auto* const each : form()->findChildren<QAbstractButton*>())
        if (each->text() == u"Abbrechen"_s && each->mapTo(form(), QPoint()).y() < 52)
            rightmost = each->mapTo(form(), QPoint(each->width(), 0)).x();
    EXPECT_EQ(rightmost, 500 - 7);
}

TEST_F(CustomerForm, tabGoesThroughTheFieldsInReadingOrderThenTheFooterThenTheHeader) {
    openFor(wordyCustomer());
    EXPECT_EQ(tabPath(*form()), (QStringList{u"Vorname"_s, u"Nachname"_s, u"Geschlecht"_s, u"Firma"_s,
                                             u"Steuernummer / USt-ID"_s, u"Straße und Hausnummer"_s, u"PLZ"_s,
                                             u"Ort"_s, u"E-Mail"_s, u"Telefon"_s, u"Löschen"_s,
                                             u"Abbrechen"_s, u"Aktualisieren"_s, u"Abbrechen"_s}));
}

TEST_F(CustomerForm, onlyTheSurnameEnablesTheButton) {
    openForNew();
    QTest::keyClicks(&field(u"Firma"_s), u"Muster GmbH"_s);
    EXPECT_FALSE(confirm().isEnabled());
    QTest::keyClick(&field(u"Firma"_s), Qt::Key_Return);
    settle();
    EXPECT_TRUE(content.store.customers->empty());
    QTest::keyClicks(&field(u"Nachname"_s), u" "_s);
    EXPECT_TRUE(confirm().isEnabled());
    QTest::keyClick(&field(u"Nachname"_s), Qt::Key_Backspace);
    EXPECT_FALSE(confirm().isEnabled());
}

TEST_F(CustomerForm, everyFieldReachesItsPlaceInTheRecord) {
    openForNew();
    const std::initializer_list<std::pair<QString, QString>> typed{
        {u"Vorname"_s, u"Erika"_s},
        {u"Nachname"_s, u"Muster"_s},
        {u"Firma"_s, u"Muster GmbH"_s},
        {u"Steuernummer / USt-ID"_s, u"DE123"_s},
        {u"Straße und Hausnummer"_s, u"Hauptstraße 1"_s},
        {u"PLZ"_s, u"50667"_s},
        {u"Ort"_s, u"Köln"_s},
        {u"E-Mail"_s, u"erika@muster.example"_s},
        {u"Telefon"_s, u"+49 221 1"_s}};
    for (const auto& [label, text] : typed)
        field(label).insert(text);
    QTest::keyClick(&gender(), Qt::Key_Up);
    confirm().click();
    settle();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(content.files.written, std::vector<std::string>{"customers.json"});
    EXPECT_EQ(content.reopenedStore().customers.get(),
              (std::vector<Customer>{{.id = onlyCustomer().id,
                                      .firstName = "Erika",
                                      .name = "Muster",
                                      .gender = Gender::female,
                                      .company = "Muster GmbH",
                                      .address = "Hauptstraße 1",
                                      .postalCode = "50667",
                                      .city = "Köln",
                                      .email = "erika@muster.example",
                                      .phone = "+49 221 1",
                                      .taxId = "DE123"}}));
}

TEST_F(CustomerForm, changingOneFieldLeavesTheOthersAsTheyWere) {
    Customer expected = wordyCustomer();
    expected.gender = Gender::female;
    openFor(expected);
    EXPECT_EQ(gender().currentText(), u"Frau"_s);
    field(u"Ort"_s).selectAll();
    QTest::keyClicks(&field(u"Ort"_s), u"Bonn"_s);
    confirm().click();
    settle();
    expected.city = "Bonn";
    EXPECT_EQ(onlyCustomer(), expected);
}

TEST_F(CustomerForm, returnConfirmsFromAnyField) {
    openFor(wordyCustomer());
    field(u"Telefon"_s).selectAll();
    QTest::keyClicks(&field(u"Telefon"_s), u"0228 2"_s);
    QTest::keyClick(&field(u"Telefon"_s), Qt::Key_Return);
    settle();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(onlyCustomer().phone, "0228 2");
}

TEST_F(CustomerForm, returnInThePickerChoosesAGenderAndConfirmsNothing) {
    openForNew();
    QTest::keyClicks(&field(u"Nachname"_s), u"Muster"_s);
    QTest::keyClick(&gender(), Qt::Key_Return);
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    settle();
    ASSERT_NE(form(), nullptr);
    EXPECT_TRUE(content.store.customers->empty());
}

TEST_F(CustomerForm, bothCancelButtonsAndEscapeThrowTheEditsAway) {
    const Customer before = wordyCustomer();
    openFor(before);
    const auto cancelButtons = [this] {
        auto buttons = form()->findChildren<QAbstractButton*>();
        buttons.removeIf([](const auto* button) { return accessibleNameOf(*button) != u"Abbrechen"_s; });
        return buttons;
    };
    ASSERT_EQ(cancelButtons().size(), 2);
    for (const auto& leave : std::initializer_list<std::function<void()>>{
             [&] { cancelButtons().at(0)->click(); }, [&] { cancelButtons().at(1)->click(); },
             [&] { QTest::keyClick(form(), Qt::Key_Escape); }}) {
        QTest::keyClicks(&field(u"Nachname"_s), u"x"_s);
        leave();
        settle();
        EXPECT_EQ(form(), nullptr);
        EXPECT_TRUE(content.files.written.empty());
        EXPECT_EQ(content.reopenedStore().customers.get(), std::vector<Customer>{before});
        // The reopened store has written its daily copy.
        content.files.written.clear();
        clickRow(0);
    }
}

TEST_F(CustomerForm, deletingAsksFirstAndCancellingKeepsTheCustomer) {
    openFor(wordyCustomer());
    openAlert();
    EXPECT_TRUE(shows(*alert, u"Kunden löschen?"_s));
    EXPECT_TRUE(shows(*alert, u"Möchten Sie diesen Kunden wirklich löschen? Diese Aktion kann nicht "
                              "rückgängig gemacht werden."_s));
    EXPECT_EQ(accessibleNameOf(*alert->focusWidget()), u"Abbrechen"_s);
    click(*alert, u"Abbrechen"_s);
    ASSERT_NE(form(), nullptr);
    EXPECT_TRUE(content.files.written.empty());
    EXPECT_EQ(content.store.customers->size(), 1U);
}

TEST_F(CustomerForm, deletingRemovesTheCustomerAndLeavesTheEmptyList) {
    openFor(wordyCustomer());
    openAlert();
    click(*alert, u"Löschen"_s);
    EXPECT_EQ(form(), nullptr);
    EXPECT_TRUE(content.reopenedStore().customers->empty());
    EXPECT_TRUE(shows(*sheet, u"Keine Kunden vorhanden"_s));
}

TEST_F(CustomerForm, escapeClosesOneThingAtATime) {
    openFor(wordyCustomer());
    openAlert();
    QTest::keyClick(alert, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(alert.isNull());
    ASSERT_NE(form(), nullptr);
    QTest::keyClick(form(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(form(), nullptr);
    ASSERT_FALSE(sheet.isNull());
    QTest::keyClick(sheet, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_TRUE(popover.isVisible());
}

TEST_F(CustomerForm, pastedLinesAndTabsBecomeBlanksInTheFieldAndInTheRecord) {
    openForNew();
    QGuiApplication::clipboard()->setText(u"Haupt\r\nstraße\t1\nHinterhof\u0007"_s);
    for (const QString& label : {u"Straße und Hausnummer"_s, u"Nachname"_s})
        QTest::keySequence(&field(label), QKeySequence::Paste);
    EXPECT_EQ(field(u"Straße und Hausnummer"_s).text(), u"Haupt straße 1 Hinterhof "_s);
    confirm().click();
    EXPECT_EQ(onlyCustomer().address, "Haupt straße 1 Hinterhof ");
    EXPECT_EQ(onlyCustomer().name, "Haupt straße 1 Hinterhof ");
}

TEST_F(CustomerForm, aLongTextIsSeenFromItsBeginning) {
    Customer customer = wordyCustomer();
    customer.company = std::string(200, 'A');
    openFor(customer);
    EXPECT_EQ(field(u"Firma"_s).cursorPosition(), 0);
}

} // namespace
} // namespace brisklog::test
