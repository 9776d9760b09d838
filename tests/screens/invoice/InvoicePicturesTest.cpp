// The invoice sheet being filled in, as a person sees it.

#include "screens/Pictures.h"
#include "screens/invoice/InvoiceSheetWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoicePictures : public ScreenTest {
protected:
    static InvoiceSheet filledSheet() {
        TimeEntry invoiced = entryOf("Schriften lizenzieren", hour / 2);
        invoiced.isInvoiced = true;
        TimeEntry free = entryOf("Beratung ohne Berechnung", hour, 0.0);
        TimeEntry longNamed = entryOf(
            "Rückmeldungen aus dem Usability-Test in die Navigation für Tablet und Telefon einarbeiten",
            1100 * hour);
        return {{invoiced, entryOf("Navigation prüfen", 2 * hour), free, longNamed}, 95.0};
    }

    static void type(const InvoiceSheetWindow& window, const QString& name, const QString& text) {
        auto* const field = findNamed<QLineEdit>(*window.sheet, name);
        ASSERT_NE(field, nullptr) << name.toStdString();
        field->insert(text);
    }

    static void movePointer(QWidget& widget, const QPointF& place) {
        QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &move);
    }
};

TEST_F(InvoicePictures, rowsTickedInvoicedAndUnderThePointer) {
    InvoiceSheet content = filledSheet();
    InvoiceSheetWindow window(content);
    window.view().toggleEntry(1);
    window.view().toggleEntry(3);
    settle();
    const QRect second = window.list().visualRect(window.list().model()->index(1, 0));
    movePointer(*window.list().viewport(), QPointF(second.right() - 20, second.center().y()));
    QTest::keyClick(&window.list(), Qt::Key_Down);
    settle();
    takePictures(*window.sheet, u"rechnung-angehakt"_s, QPoint(5, 60));
}

TEST_F(InvoicePictures, everythingFilledIn) {
    InvoiceSheet content = filledSheet();
    Customer customer = customerNamed("Muster", "Muster GmbH");
    content.addCustomer(customer);
    content.store.addSavedNote("Zahlungshinweis", "Bitte ohne Abzug.");
    InvoiceSheetWindow window(content);
    type(window, u"Rechnungsnummer:"_s, u"2026-041"_s);
    type(window, u"Beschreibung"_s, u"Vor-Ort-Termin"_s);
    type(window, u"Stundenlohn"_s, u"85,50"_s);
    window.view().additionalNotes = "Bitte überweisen Sie den Betrag ohne Abzug.\nVielen Dank!";
    settle();
    takePictures(*window.sheet, u"rechnung-ausgefuellt"_s, QPoint(5, 60));
    window.button(u"Gespeicherte Notizen"_s).click();
    settle();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    takePictures(*QApplication::activePopupWidget(), u"rechnung-notizen"_s);
}

TEST_F(InvoicePictures, theNameOfANote) {
    InvoiceSheet content = filledSheet();
    InvoiceSheetWindow window(content);
    window.view().additionalNotes = "Bitte ohne Abzug.";
    settle();
    window.button(u"Speichern"_s).click();
    settle();
    takePictures(*QApplication::activeModalWidget(), u"notiz-speichern"_s);
}

} // namespace
} // namespace brisklog::test
