#include "invoice/screens/InvoiceScreen.h"

#include "screens/Pictures.h"
#include "screens/invoice/InvoiceSheetWindow.h"
#include "support/PdfReader.h"
#include "ui/controls/Picker.h"
#include "ui/controls/Stepper.h"

#include <QDateTimeEdit>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoiceScreenTest : public ScreenTest {
protected:
    static Customer erika() {
        Customer customer = customerNamed("Muster", "Muster GmbH");
        customer.gender = Gender::female;
        customer.firstName = "Erika";
        customer.city = "Köln";
        return customer;
    }

    static QLineEdit& field(InvoiceSheetWindow& window, const QString& name) {
        for (auto* field : window.sheet->findChildren<QLineEdit*>())
            if (field->accessibleName() == name)
                return *field;
        std::abort();
    }
};

TEST_F(InvoiceScreenTest, namesTheProjectAndClosesWithEscape) {
    InvoiceSheet content({}, std::nullopt, "Website");
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.sheet->windowTitle(), u"Rechnung erstellen: Website"_s);
    QTest::keyClick(window.sheet, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(window.sheet.isNull());
}

TEST_F(InvoiceScreenTest, sectionsStandInTheirOrderUnderTheirNames) {
    InvoiceSheet content({entryOf("Entwurf", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    int above = 0;
    for (const QString& text :
         {u"Kundenauswahl"_s, u"Keine Kunden vorhanden. Bitte zuerst Kunden anlegen."_s,
          u"Rechnungsnummer:"_s, u"Einträge zur Abrechnung"_s, u"Ausgewählte Einträge:"_s,
          u"Manueller Eintrag"_s, u"Datum:"_s, u"Beschreibung:"_s, u"Dauer:"_s, u"Stundenlohn:"_s,
          u"Zusätzliche Hinweise"_s}) {
        const QWidget* const label = window.label(text);
        ASSERT_NE(label, nullptr) << text.toStdString();
        const int top = label->mapTo(window.sheet, QPoint()).y();
        EXPECT_GT(top, above) << text.toStdString();
        above = top;
    }
    EXPECT_NE(window.label(u"Gesamtzeit:"_s), nullptr);
    EXPECT_EQ(field(window, u"Rechnungsnummer:"_s).width(), 200);
}

TEST_F(InvoiceScreenTest, theButtonInTheHeaderClosesToo) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    window.button(u"Schließen"_s).click();
    settle();
    EXPECT_TRUE(window.sheet.isNull());
}

TEST_F(InvoiceScreenTest, startsInTheFirstField) {
    InvoiceSheet content({}, std::nullopt);
    content.addCustomer(erika());
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.sheet->focusWidget()->accessibleName(), u"Kunde auswählen"_s);
}

TEST_F(InvoiceScreenTest, takesTheEntriesAgainWhenShownAgainAndKeepsTheTicks) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    window.sheet->hide();
    content.store.addManualEntry(content.store.projects->front().id, entryOf("Zwei", hour));
    showActive(*window.sheet);
    EXPECT_EQ(window.list().model()->rowCount(), 2);
    EXPECT_EQ(window.view().selectedEntries().size(), 1U);
}

TEST_F(InvoiceScreenTest, choosingACustomerShowsTheAddress) {
    InvoiceSheet content({}, std::nullopt);
    content.addCustomer(customerNamed("Özdemir"));
    content.addCustomer(erika());
    InvoiceSheetWindow window(content);
    auto* picker = findFirst<Picker>(*window.sheet);
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->count(), 3);
    EXPECT_EQ(picker->currentText(), u"Bitte auswählen"_s);
    EXPECT_EQ(window.label(u"Kundeninformationen:"_s), nullptr);
    QTest::keyClick(picker, Qt::Key_Down);
    QTest::keyClick(picker, Qt::Key_Down);
    settle();
    EXPECT_EQ(picker->currentText(), u"Muster - Muster GmbH"_s);
    EXPECT_NE(window.label(u"Kundeninformationen:"_s), nullptr);
    const QWidget* const address = window.label(u"Frau Erika Muster\nMuster GmbH\nKöln"_s);
    ASSERT_NE(address, nullptr);
    EXPECT_EQ(window.label(u"Kundeninformationen:"_s)->y(), address->y());
    QTest::keyClick(picker, Qt::Key_Home);
    settle();
    EXPECT_EQ(window.view().selectedCustomerId.get(), std::nullopt);
    EXPECT_EQ(window.label(u"Kundeninformationen:"_s), nullptr);
}

TEST_F(InvoiceScreenTest, withoutCustomersLeadsToTheCustomerScreensOnceItIsClosed) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    EXPECT_NE(window.label(u"Keine Kunden vorhanden. Bitte zuerst Kunden anlegen."_s), nullptr);
    bool wasClosed = false;
    int posts = 0;
    const auto subscription = content.notificationCenter.observe("OpenCustomerManagement", [&] {
        wasClosed = !window.sheet->isVisible();
        ++posts;
    });
    window.button(u"Kundenverwaltung öffnen"_s).click();
    settle();
    EXPECT_EQ(posts, 1);
    EXPECT_TRUE(wasClosed);
    EXPECT_TRUE(window.sheet.isNull());
}

TEST_F(InvoiceScreenTest, customersThatAppearMeanwhileCanBeChosen) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    EXPECT_TRUE(window.button(u"Rechnung erstellen"_s).isEnabled());
    content.addCustomer(erika());
    settle();
    EXPECT_EQ(window.label(u"Keine Kunden vorhanden. Bitte zuerst Kunden anlegen."_s), nullptr);
    EXPECT_FALSE(window.button(u"Rechnung erstellen"_s).isEnabled());
}

TEST_F(InvoiceScreenTest, createsOnlyWhatCanBeBilled) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    EXPECT_FALSE(window.button(u"Rechnung erstellen"_s).isEnabled());
    QTest::keyClick(window.sheet, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(content.savePanel.requests.empty());
    window.clickRow(0);
    window.button(u"Rechnung erstellen"_s).click();
    EXPECT_EQ(content.savePanel.requests.size(), 1U);
    EXPECT_TRUE(content.projectEntries()[0].isInvoiced);
}

TEST_F(InvoiceScreenTest, controlReturnCreatesFromAnywhereAndReturnDoesNot) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    QLineEdit& number = field(window, u"Rechnungsnummer:"_s);
    number.setFocus();
    QTest::keyClicks(&number, u"2026-041"_s);
    QTest::keyClick(&number, Qt::Key_Return);
    settle();
    EXPECT_TRUE(content.savePanel.requests.empty());
    QTest::keyClick(&number, Qt::Key_Return, Qt::ControlModifier);
    settle();
    ASSERT_EQ(content.store.archivedInvoices->size(), 1U);
    EXPECT_EQ(content.store.archivedInvoices->front().invoiceNumber, "2026-041");
    QTest::keyClick(&window.list(), Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(content.store.archivedInvoices->size(), 2U);
}

TEST_F(InvoiceScreenTest, theCreateButtonNamesItsShortcut) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    EXPECT_TRUE(window.button(u"Rechnung erstellen"_s).toolTip().contains(u"Strg+Eingabe"_s));
}

TEST_F(InvoiceScreenTest, theFootShowsCountAndSumBesideTheButton) {
    InvoiceSheet content({entryOf("Eins", hour), entryOf("Zwei", hour), entryOf("Drei", hour / 2)}, 171.0);
    InvoiceSheetWindow window(content);
    EXPECT_NE(window.label(u"0 Einträge · 0.00 €"_s), nullptr);
    window.clickRow(0);
    EXPECT_NE(window.label(u"1 Eintrag · 171.00 €"_s), nullptr);
    window.button(u"Alle auswählen"_s).click();
    settle();
    const QWidget* const sum = window.label(u"3 Einträge · 427.50 €"_s);
    ASSERT_NE(sum, nullptr);
    const QWidget& create = window.button(u"Rechnung erstellen"_s);
    const QPoint end = sum->mapTo(window.sheet, sum->rect().bottomRight());
    const QPoint begin = create.mapTo(window.sheet, QPoint());
    EXPECT_TRUE(sum->isVisible());
    EXPECT_GT(end.y(), begin.y());
    EXPECT_LT(end.x(), begin.x());
    EXPECT_LT(begin.x() - end.x(), 24);
}

TEST_F(InvoiceScreenTest, withoutARateTheFootShowsTheCountAlone) {
    InvoiceSheet content({entryOf("Eins", hour, 80.0)}, std::nullopt);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    EXPECT_NE(window.label(u"1 Eintrag"_s), nullptr);
}

TEST_F(InvoiceScreenTest, theDisabledCreateButtonSaysWhatIsMissing) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    content.addCustomer(erika());
    InvoiceSheetWindow window(content);
    const QAbstractButton& create = window.button(u"Rechnung erstellen"_s);
    const auto expectSaid = [&create](const QString& sentence) {
        EXPECT_EQ(create.toolTip(), sentence);
        EXPECT_EQ(create.accessibleDescription(), sentence);
    };
    expectSaid(u"Bitte zuerst einen Kunden und mindestens einen Eintrag auswählen."_s);
    window.clickRow(0);
    expectSaid(u"Bitte zuerst einen Kunden auswählen."_s);
    window.view().selectedCustomerId = content.store.customers->front().id;
    settle();
    EXPECT_TRUE(create.isEnabled());
    EXPECT_EQ(create.toolTip(), u"Rechnung erstellen (Strg+Eingabe)"_s);
    EXPECT_EQ(create.accessibleDescription(), QString());
    window.clickRow(0);
    expectSaid(u"Bitte zuerst mindestens einen Eintrag auswählen."_s);
}

TEST_F(InvoiceScreenTest, staysOpenAfterCreatingWithTheBilledRowsTicked) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    InvoiceSheetWindow window(content);
    window.clickRow(0);
    window.button(u"Rechnung erstellen"_s).click();
    content.savePanel.answer(std::nullopt);
    settle();
    EXPECT_TRUE(window.sheet->isVisible());
    EXPECT_TRUE(window.button(u"Rechnung erstellen"_s).isEnabled());
    const QModelIndex row = window.list().model()->index(0, 0);
    EXPECT_EQ(row.data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(row.data(Qt::AccessibleDescriptionRole).toString(), u"Bereits abgerechnet"_s);
}

TEST_F(InvoiceScreenTest, theDocumentIsStillWrittenWhenTheSheetWasClosedUnderThePanel) {
    InvoiceSheet content({entryOf("Eins", hour)}, 60.0);
    const auto file = content.home.path() / "Rechnung.pdf";
    InvoiceSheetWindow window(content);
    window.view().invoiceNumber = "7";
    window.clickRow(0);
    window.button(u"Rechnung erstellen"_s).click();
    window.sheet->dismiss();
    settle();
    ASSERT_TRUE(window.sheet.isNull());
    content.savePanel.answer(file);
    EXPECT_TRUE(PdfReader(readFile(file)).find("Rechnungsnummer: 7"));
}

TEST_F(InvoiceScreenTest, controlReturnHeldDownBillsOnce) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    int count = 0;
    for (const auto* shortcut : window.sheet->findChildren<QShortcut*>()) {
        EXPECT_FALSE(shortcut->autoRepeat());
        ++count;
    }
    EXPECT_EQ(count, 2);
}

TEST_F(InvoiceScreenTest, aManualEntryIsAtMost23HoursAnd59MinutesLong) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    const auto steps = [&](const QString& name, const QString& unit, int most) {
        auto* stepper = findNamed<Stepper>(*window.sheet, name);
        EXPECT_EQ(stepper->value(), 0);
        Stepper expected(0, most, unit, name);
        expected.resize(stepper->size());
        EXPECT_EQ(picture(*stepper), picture(expected));
        QTest::keyClicks(stepper, u"99"_s);
        QTest::keyClick(stepper, Qt::Key_Return);
        QTest::keyClick(stepper, Qt::Key_Up);
        EXPECT_EQ(stepper->value(), most);
    };
    steps(u"Stunden"_s, u"h"_s, 23);
    steps(u"Minuten"_s, u"m"_s, 59);
    EXPECT_EQ(window.view().manualHours, 23);
    EXPECT_EQ(window.view().manualMinutes, 59);
}

TEST_F(InvoiceScreenTest, aDurationTypedIntoEitherStepperSetsBoth) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    auto* const hours = findNamed<Stepper>(*window.sheet, u"Stunden"_s);
    auto* const minutes = findNamed<Stepper>(*window.sheet, u"Minuten"_s);
    const auto type = [](Stepper* stepper, const QString& text) {
        stepper->selectAll();
        QTest::keyClicks(stepper, text);
        QTest::keyClick(stepper, Qt::Key_Return);
        settle();
    };
    type(hours, u"1:30"_s);
    EXPECT_EQ(hours->text() + minutes->text(), u"1h30m"_s);
    type(minutes, u"2:05"_s);
    EXPECT_EQ(hours->text() + minutes->text(), u"2h5m"_s);
    type(hours, u"25:00"_s);
    EXPECT_EQ(hours->text() + minutes->text(), u"2h5m"_s);
}

TEST_F(InvoiceScreenTest, whatIsStillBeingTypedIntoAStepperIsAdded) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    auto* const hours = findNamed<Stepper>(*window.sheet, u"Stunden"_s);
    hours->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(hours, u"1:30"_s);
    QTest::mouseClick(&window.button(u"Eintrag hinzufügen"_s), Qt::LeftButton);
    settle();
    ASSERT_EQ(content.projectEntries().size(), 1U);
    const TimeEntry& entry = content.projectEntries()[0];
    EXPECT_EQ(entry.endTime, entry.startTime.addingSeconds(5400));
    EXPECT_EQ(hours->text(), u"0h"_s);
}

TEST_F(InvoiceScreenTest, addsWhatWasTypedAsManualEntry) {
    InvoiceSheet content({}, 60.0);
    InvoiceSheetWindow window(content);
    QTest::keyClicks(&field(window, u"Beschreibung"_s), u"Vor-Ort-Termin"_s);
    QTest::keyClicks(&field(window, u"Stundenlohn"_s), u"85,50"_s);
    for (const QString& name : {u"Stunden"_s, u"Minuten"_s})
        QTest::keyClick(findNamed<Stepper>(*window.sheet, name), Qt::Key_Up);
    const QDateTime moment(QDate(2026, 11, 3), QTime(8, 15), Qt::UTC);
    auto* date = window.sheet->findChild<QDateTimeEdit*>();
    date->setDateTime(moment);
    window.button(u"Eintrag hinzufügen"_s).click();
    settle();

    ASSERT_EQ(content.projectEntries().size(), 1U);
    const TimeEntry& entry = content.projectEntries()[0];
    EXPECT_EQ(entry.taskName, "Vor-Ort-Termin");
    EXPECT_EQ(entry.hourlyRate, 85.5);
    EXPECT_EQ(entry.startTime.secondsSince1970(), static_cast<double>(moment.toSecsSinceEpoch()));
    EXPECT_EQ(entry.endTime, entry.startTime.addingSeconds(3660));
    EXPECT_EQ(field(window, u"Beschreibung"_s).text(), QString());
    EXPECT_EQ(field(window, u"Stundenlohn"_s).text(), QString());
    EXPECT_EQ(date->dateTime(), moment);
    EXPECT_EQ(window.list().model()->rowCount(), 1);
    EXPECT_TRUE(window.list().isVisible());
}

TEST_F(InvoiceScreenTest, theManualDateStartsAtTheMomentOfOpening) {
    InvoiceSheet content({}, 60.0);
    InvoiceSheetWindow window(content);
    const auto* date = window.sheet->findChild<QDateTimeEdit*>();
    EXPECT_EQ(static_cast<double>(date->dateTime().toSecsSinceEpoch()),
              content.clock.now().secondsSince1970());
}

TEST_F(InvoiceScreenTest, looksAsItShould) {
    InvoiceSheet content({entryOf("Navigation für Tablet und Telefon prüfen", hour),
                          entryOf("Rückmeldungen aus dem Usability-Test einarbeiten", 7.25 * hour),
                          entryOf("Formular „Angebot anfordern“", 2.5 * hour)},
                         95.0);
    content.addCustomer(erika());
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.sheet->size(), QSize(640, 680));
    takePictures(*window.sheet, u"rechnung"_s, QPoint(5, 60));
}

TEST_F(InvoiceScreenTest, looksAsItShouldWithManyEntriesToo) {
    std::vector<TimeEntry> entries;
    for (int i = 0; i < 20; ++i)
        entries.push_back(entryOf("Abschnitt " + std::to_string(i), (i % 4 + 1) * hour));
    InvoiceSheet content(entries, 95.0);
    content.addCustomer(erika());
    InvoiceSheetWindow window(content);
    for (const std::size_t row : {3U, 4U, 9U})
        window.view().toggleEntry(row);
    settle();
    takePictures(*window.sheet, u"rechnung-viele"_s, QPoint(5, 60));
    window.page().verticalScrollBar()->setValue(window.page().verticalScrollBar()->maximum());
    settle();
    takePictures(*window.sheet, u"rechnung-viele-unten"_s, QPoint(5, 60));
}

TEST_F(InvoiceScreenTest, withoutEntriesAndCustomersSaysSo) {
    InvoiceSheet content({}, std::nullopt);
    InvoiceSheetWindow window(content);
    takePictures(*window.sheet, u"rechnung-leer"_s, QPoint(5, 60));
}

} // namespace
} // namespace brisklog::test
