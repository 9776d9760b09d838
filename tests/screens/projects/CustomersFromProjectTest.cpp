// The two ways to the customers: the project screen's button, and the invoice sheet when there is no customer
// to choose.

#include "invoice/screens/InvoiceScreen.h"
#include "platform/documents/CairoPdfFacility.h"
#include "profile/screens/CustomerScreen.h"
#include "screens/projects/ProjectScreenBench.h"
#include "support/RecordingSavePanel.h"
#include "ui/sheets/Sheets.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class CustomersFromProject : public ProjectScreenBench {
protected:
    CustomersFromProject() {
        bench.store.addManualEntry(bench.project(0).id, bench.entry("Entwurf"));
        actions.openCustomers = [this](QWidget& from) { presentSheet(from, makeCustomerSheet(bench.store)); };
        actions.openInvoice = [this](QWidget& from, int index) {
            presentSheet(from, makeInvoiceSheet(bench.store, index,
                                                {.pdf = pdf,
                                                 .clock = bench.clock,
                                                 .savePanel = savePanel,
                                                 .files = bench.files,
                                                 .log = bench.log,
                                                 .profile = {}},
                                                notifications));
        };
        open();
    }

    /// Titles of all open sheets.
    static QStringList openSheets() {
        QStringList titles;
        for (const QWidget* const window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->isModal())
                titles.push_back(window->windowTitle());
        return titles;
    }

    RecordingSavePanel savePanel;
    CairoPdfFacility pdf;
};

TEST_F(CustomersFromProject, theButtonOpensThemAsASheet) {
    click(u"Kunde"_s);
    EXPECT_EQ(openSheets(), QStringList{u"Kundenverwaltung"_s});
}

TEST_F(CustomersFromProject, theInvoiceSheetClosesBeforeTheyOpen) {
    click(u"Rechnung"_s);
    ASSERT_EQ(openSheets(), QStringList{u"Rechnung erstellen: Standardprojekt"_s});
    button(*sheet(), u"Kundenverwaltung öffnen"_s).click();
    settle();
    EXPECT_EQ(openSheets(), QStringList{u"Kundenverwaltung"_s});
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_TRUE(openSheets().isEmpty());
    EXPECT_TRUE(screen->isVisible());
}

TEST_F(CustomersFromProject, aCustomerMadeThereCanBeChosenInTheNextInvoice) {
    click(u"Rechnung"_s);
    button(*sheet(), u"Kundenverwaltung öffnen"_s).click();
    settle();
    button(*sheet(), u"Ersten Kunden anlegen"_s).click();
    settle();
    field(*sheet(), u"Nachname"_s).insert(u"Muster"_s);
    button(*sheet(), u"Hinzufügen"_s).click();
    settle();
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    click(u"Rechnung"_s);
    EXPECT_TRUE(findNamed<QWidget>(*sheet(), u"Kunde auswählen"_s)->isVisible());
}

} // namespace
} // namespace brisklog::test
