#include "profile/screens/CustomerScreen.h"

#include "app/components/EmptyState.h"
#include "app/components/Layout.h"
#include "app/components/ListView.h"
#include "app/components/SheetWindow.h"
#include "profile/screens/CustomerDelegate.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{460, 560};

EmptyState* noCustomers() {
    return new EmptyState(
        {.symbol = u"person.crop.circle.badge.questionmark"_s,
         .headline = u"Keine Kunden vorhanden"_s,
         .sentence = u"Erstellen Sie Kundenprofile, um diese bei der Rechnungserstellung auszuwählen."_s},
        EmptyState::Place::sheet);
}

} // namespace

CustomerScreen::CustomerScreen(TimeTrackingStore& timeStore)
    : m_timeStore(timeStore), m_model(timeStore), m_noCustomers(noCustomers()),
      m_list(new ListView(ListView::RowHeights::different)) {
    m_list->setAccessibleName(u"Kundenverwaltung"_s);
    m_list->setModel(&m_model);
    m_list->setItemDelegate(new CustomerDelegate(m_model, *m_list));
    Column{expanding(m_noCustomers), expanding(m_list)}.applyTo(*this);
    observe(m_timeStore);
}

void CustomerScreen::refresh() {
    m_model.synchronise();
    m_noCustomers->setVisible(m_timeStore.customers->empty());
    m_list->setVisible(!m_timeStore.customers->empty());
}

std::unique_ptr<SheetWindow> makeCustomerSheet(TimeTrackingStore& timeStore) {
    auto sheet = std::make_unique<SheetWindow>(u"Kundenverwaltung"_s, sheetSize);
    sheet->addCloseButton(u"Schließen"_s);
    sheet->setBody(new CustomerScreen(timeStore), SheetWindow::Body::fixed);
    return sheet;
}

} // namespace brisklog
