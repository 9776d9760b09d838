// The list of customers as a sheet, with its forms and questions over it.

#include "profile/screens/CustomerScreen.h"

#include "screens/profile/CustomerSheetWindow.h"
#include "support/WritableStore.h"

#include <QGuiApplication>
#include <QLabel>
#include <QListView>
#include <QTest>
#include <QToolTip>
#include <chrono>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

using CustomerScreenTest = CustomerSheetWindow;

TEST_F(CustomerScreenTest, withoutCustomersShowsOnlyTheEmptyState) {
    open();
    EXPECT_EQ(sheet->windowTitle(), u"Kundenverwaltung"_s);
    EXPECT_TRUE(shows(*sheet, u"Kundenverwaltung"_s));
    EXPECT_TRUE(shows(*sheet, u"Keine Kunden vorhanden"_s));
    EXPECT_TRUE(
        shows(*sheet, u"Erstellen Sie Kundenprofile, um diese bei der Rechnungserstellung auszuwählen."_s));
    EXPECT_FALSE(list().isVisible());
}

TEST_F(CustomerScreenTest, theEmptyStateStandsAboveTheMiddle) {
    open();
    const auto* const headline = findNamed<QLabel>(*sheet, u"Keine Kunden vorhanden"_s);
    EXPECT_NEAR(headline->mapTo(sheet.data(), headline->rect().center()).y(), 292, 1);
}

TEST_F(CustomerScreenTest, theEmptyStatesButtonOpensTheSameFormAsTheHeaders) {
    open();
    for (const QString& caption : {u"Ersten Kunden anlegen"_s, u"Neuer Kunde"_s}) {
        click(*sheet, caption);
        ASSERT_NE(form(), nullptr);
        EXPECT_EQ(form()->windowTitle(), u"Neuer Kunde"_s);
        click(*form(), u"Abbrechen"_s);
        EXPECT_EQ(form(), nullptr);
    }
}

TEST_F(CustomerScreenTest, listsCustomersInTheStoresOrder) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler", "Adler KG"));
    open();
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(shows(*sheet, u"Keine Kunden vorhanden"_s));
    ASSERT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(textOf(0), u"Herr Zander"_s);
    EXPECT_EQ(list().model()->index(1, 0).data(Qt::AccessibleTextRole).toString(), u"Herr Adler, Adler KG"_s);
}

TEST_F(CustomerScreenTest, theListTellsScreenReadersHowToOpenACustomer) {
    addCustomer(wordyCustomer());
    open();
    EXPECT_EQ(list().accessibleDescription(), u"Die Eingabetaste öffnet einen Kunden."_s);
}

TEST_F(CustomerScreenTest, followsTheStoreWhileItIsOpen) {
    open();
    addCustomer(customerNamed("Adler"));
    settle();
    EXPECT_TRUE(list().isVisible());
    content.store.deleteCustomer(0);
    settle();
    EXPECT_TRUE(shows(*sheet, u"Keine Kunden vorhanden"_s));
}

TEST_F(CustomerScreenTest, followsAListThatIsAnotherAltogether) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler"));
    open();
    writable(content.store.customers) = {customerNamed("Bach"), customerNamed("Specht"),
                                         customerNamed("Fink")};
    settle();
    ASSERT_EQ(list().model()->rowCount(), 3);
    EXPECT_EQ(textOf(0), u"Herr Bach"_s);
    EXPECT_EQ(textOf(2), u"Herr Fink"_s);
}

TEST_F(CustomerScreenTest, aCustomerWithMoreToSayIsHigher) {
    addCustomer(customerNamed("Zander"));
    addCustomer(wordyCustomer());
    addCustomer(customerNamed("Zander"));
    open();
    const auto heightOf = [this](int row) { return rowArea(row).height(); };
    EXPECT_GT(heightOf(1), heightOf(0));
    EXPECT_GT(heightOf(1), heightOf(2));
}

TEST_F(CustomerScreenTest, aCardGrowsWithWhatIsAddedToItsCustomer) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler"));
    open();
    const int before = rowArea(0).height();
    Customer changed = content.store.customers->front();
    changed.phone = "0221 1";
    content.store.updateCustomer(changed);
    settle();
    EXPECT_GT(rowArea(0).height(), before);
    EXPECT_EQ(rowArea(1).top(), rowArea(0).bottom() + 1);
}

TEST_F(CustomerScreenTest, aClickOnACardOpensThatCustomersForm) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler"));
    open();
    clickRow(1);
    ASSERT_NE(form(), nullptr);
    EXPECT_EQ(form()->windowTitle(), u"Kunde bearbeiten"_s);
    EXPECT_EQ(field(u"Nachname"_s).text(), u"Adler"_s);
    click(*form(), u"Abbrechen"_s);
    clickRow(0);
    EXPECT_EQ(field(u"Nachname"_s).text(), u"Zander"_s);
}

TEST_F(CustomerScreenTest, aClickUnderTheLastCardOpensNothing) {
    addCustomer(customerNamed("Zander"));
    open();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, QPoint(200, 400));
    settle();
    EXPECT_EQ(form(), nullptr);
}

TEST_F(CustomerScreenTest, theKeyboardWalksTheCardsAndOpensThem) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler"));
    open();
    EXPECT_EQ(sheet->focusWidget(), &list());
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        list().setCurrentIndex(list().model()->index(0, 0));
        QTest::keyClick(&list(), Qt::Key_Down);
        QTest::keyClick(&list(), static_cast<Qt::Key>(key));
        settle();
        ASSERT_NE(form(), nullptr);
        EXPECT_EQ(field(u"Nachname"_s).text(), u"Adler"_s);
        QTest::keyClick(form(), Qt::Key_Escape);
        settle();
        EXPECT_EQ(form(), nullptr);
        EXPECT_TRUE(sheet->isVisible());
    }
}

TEST_F(CustomerScreenTest, tabGoesFromTheListToTheHeadersButtonsWithTheCloseButtonLast) {
    addCustomer(customerNamed("Zander"));
    open();
    EXPECT_EQ(tabPath(*sheet), (QStringList{u"Kundenverwaltung"_s, u"Neuer Kunde"_s, u"Schließen"_s}));
}

TEST_F(CustomerScreenTest, tabStartsAtTheEmptyStatesButton) {
    open();
    EXPECT_EQ(tabPath(*sheet), (QStringList{u"Ersten Kunden anlegen"_s, u"Neuer Kunde"_s, u"Schließen"_s}));
}

TEST_F(CustomerScreenTest, aCreatedCustomerIsTheLastRowAndInSight) {
    for (int count = 0; count < 30; ++count)
        addCustomer(customerNamed("Zander"));
    open();
    click(*sheet, u"Neuer Kunde"_s);
    field(u"Nachname"_s).insert(u"Adler"_s);
    click(*form(), u"Hinzufügen"_s);
    EXPECT_EQ(form(), nullptr);
    ASSERT_EQ(list().model()->rowCount(), 31);
    EXPECT_EQ(textOf(30), u"Divers Adler"_s);
    EXPECT_TRUE(list().viewport()->rect().contains(rowArea(30).center()));
}

TEST_F(CustomerScreenTest, editingInTheMiddleOfALongListKeepsItsPlace) {
    for (int count = 0; count < 60; ++count)
        addCustomer(customerNamed("Zander"));
    open();
    list().scrollTo(list().model()->index(30, 0), QAbstractItemView::PositionAtTop);
    const int top = rowArea(30).top();
    clickRow(31);
    field(u"Telefon"_s).insert(u"1"_s);
    click(*form(), u"Aktualisieren"_s);
    EXPECT_EQ(rowArea(30).top(), top);
    clickRow(31);
    click(*form(), u"Löschen"_s);
    click(*QApplication::activeModalWidget(), u"Löschen"_s);
    EXPECT_EQ(list().model()->rowCount(), 59);
    EXPECT_EQ(rowArea(30).top(), top);
}

TEST_F(CustomerScreenTest, longAddressesAreShortenedWithTheWholeTextAsTooltip) {
    Customer customer = wordyCustomer();
    customer.address = std::string(120, 'S');
    addCustomer(customer);
    open();
    const QRect row = rowArea(0);
    const auto tooltipAt = [&](int y) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, QPoint(100, y), list().viewport()->mapToGlobal(QPoint(100, y)));
        QCoreApplication::sendEvent(list().viewport(), &event);
        return QToolTip::text();
    };
    // The lines are name, company and place.
    constexpr int firstLine = 12 + 10 + 9;
    EXPECT_EQ(tooltipAt(row.top() + firstLine), QString());
    EXPECT_TRUE(tooltipAt(row.top() + firstLine + 18 + 19).contains(QString(120, u'S') + u", 50667 Köln"_s));
}

TEST_F(CustomerScreenTest, aThousandCustomersOpenAndScrollWithoutMakingOneWait) {
    std::vector<Customer> customers(1000, wordyCustomer());
    for (Customer& customer : customers)
        customer.id = Uuid::generate();
    writable(content.store.customers) = customers;
    const auto start = std::chrono::steady_clock::now();
    open();
    list().scrollToBottom();
    settle();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(list().viewport()->rect().contains(rowArea(999).center()));
    // Ten times what it takes; a list that paints or measures every card takes far longer.
    EXPECT_LT(taken.count(), 1.0);
}

TEST_F(CustomerScreenTest, theCardUnderThePointerIsMarked) {
    addCustomer(customerNamed("Zander"));
    addCustomer(customerNamed("Adler"));
    open();
    const QPoint spot(400, rowArea(1).center().y());
    const QPoint onSheet = list().viewport()->mapTo(sheet, spot);
    EXPECT_EQ(picture(*sheet).pixelColor(onSheet), Palette::current().card);
    QTest::mouseMove(list().viewport(), spot);
    QMouseEvent move(QEvent::MouseMove, spot, list().viewport()->mapToGlobal(spot), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(list().viewport(), &move);
    QHoverEvent hover(QEvent::HoverMove, spot, list().viewport()->mapToGlobal(spot), QPointF());
    QCoreApplication::sendEvent(list().viewport(), &hover);
    const Palette& palette = Palette::current();
    EXPECT_TRUE(looksLike(picture(*sheet).pixelColor(onSheet),
                          blendedOver(withOpacity(palette.control, 0.5), palette.ground)));
}

} // namespace
} // namespace brisklog::test
