#include "profile/screens/CustomerScreen.h"

#include "profile/screens/CustomerDelegate.h"
#include "profile/screens/CustomerEditScreen.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/NavigationButton.h"
#include "ui/lists/RowList.h"
#include "ui/look/Keys.h"
#include "ui/look/Layout.h"
#include "ui/sheets/Sheets.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{460, 560};

QWidget* noCustomers(std::function<void()> createCustomer) {
    auto* content = new EmptyState(
        {.symbol = u"person.crop.circle.badge.questionmark"_s,
         .headline = u"Keine Kunden vorhanden"_s,
         .sentence = u"Erstellen Sie Kundenprofile, um diese bei der Rechnungserstellung auszuwählen."_s,
         .buttonCaption = u"Ersten Kunden anlegen"_s,
         .action = std::move(createCustomer)},
        EmptyState::Place::sheet);
    // Exactly centred it would look too low.
    return asWidget(Column{expanding(content, 25), stretch(2)});
}

} // namespace

CustomerScreen::CustomerScreen(TimeTrackingStore& timeStore)
    : m_timeStore(timeStore), m_view(timeStore), m_model(timeStore),
      m_newCustomer(new NavigationButton({.icon = u"plus"_s,
                                          .label = u"Neuer Kunde"_s,
                                          .action = [this] { m_view.createCustomer(); },
                                          .accent = true})),
      m_noCustomers(noCustomers([this] { m_view.createCustomer(); })),
      m_list(new RowList(RowList::RowHeights::different)) {
    makeList();
    Column{expanding(m_noCustomers), expanding(m_list)}.applyTo(*this);
    observe(m_timeStore);
    observe(m_view);
}

void CustomerScreen::makeList() {
    m_list->setAccessibleName(u"Kundenverwaltung"_s);
    m_list->setAccessibleDescription(u"Die Eingabetaste öffnet einen Kunden."_s);
    m_list->setRows(m_model, *new CustomerDelegate(m_model, *m_list));
    m_list->onKey([this](const QModelIndex& current, int key) {
        const bool chooses = isReturn(key) || key == Qt::Key_Space;
        if (chooses)
            editCustomer(current);
        return chooses;
    });
    m_list->onClicked([this](const QModelIndex& clicked) { editCustomer(clicked); });
}

void CustomerScreen::editCustomer(const QModelIndex& index) {
    if (index.isValid())
        m_view.editCustomer(m_model.rowAt(index).id);
}

void CustomerScreen::refresh() {
    refreshRows();
    m_noCustomers->setVisible(!m_view.hasCustomers());
    m_list->setVisible(m_view.hasCustomers());
    refreshForm();
}

void CustomerScreen::refreshRows() {
    const int before = m_model.rowCount();
    m_model.synchronise();
    const bool customerWasAdded = before > 0 && m_model.rowCount() == before + 1;
    if (customerWasAdded)
        m_list->scrollToBottom();
}

void CustomerScreen::refreshForm() {
    if (!m_view.isFormShown() || m_form)
        return;
    const std::optional<Customer>& customer = m_view.editingCustomer;
    auto form = customer ? std::make_unique<CustomerEditScreen>(m_timeStore, *customer)
                         : std::make_unique<CustomerEditScreen>(m_timeStore);
    m_form = &presentSheet(*this, std::move(form));
    m_form->onClosed([this] {
        m_form = nullptr;
        m_view.formClosed();
    });
}

std::unique_ptr<SheetWindow> makeCustomerSheet(TimeTrackingStore& timeStore) {
    auto sheet = std::make_unique<SheetWindow>(u"Kundenverwaltung"_s, sheetSize);
    auto* screen = new CustomerScreen(timeStore);
    sheet->addHeaderWidget(&screen->newCustomerButton());
    sheet->addCloseButton(u"Schließen"_s);
    sheet->setBody(screen, SheetWindow::Body::fixed);
    return sheet;
}

} // namespace brisklog
