#include "invoice/screens/InvoiceSections.h"

#include "invoice/screens/InvoiceFormLayout.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/Picker.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int pickerWidth = 300;
constexpr int gapBeforeButton = 12;

} // namespace

InvoiceCustomerSection::InvoiceCustomerSection(TimeTrackingStore& timeStore, InvoiceView& view)
    : m_timeStore(timeStore), m_view(view), m_picker(new Picker),
      m_address(new Label({}, FontRole::body13, &Palette::text, Label::Lines::wrapped)),
      m_information(new QWidget), m_noCustomers(noCustomers()), m_choices(customerChoices()) {
    Column{invoiceForm::heading(u"Kundenauswahl"_s), invoiceForm::card(Column{m_noCustomers, m_choices})}
        .applyTo(*this);
    observe(m_timeStore);
    observe(m_view);
}

QWidget* InvoiceCustomerSection::noCustomers() {
    auto* open = new Button(u"Kundenverwaltung öffnen"_s);
    open->onClick([this] { m_view.openCustomerManagement(); });
    auto* sentence = new Label(u"Keine Kunden vorhanden. Bitte zuerst Kunden anlegen."_s, FontRole::body13,
                               &Palette::secondary, Label::Lines::wrapped);
    return asWidget(Row{aligned(sentence, Qt::AlignVCenter), space(gapBeforeButton), stretch(), open});
}

QWidget* InvoiceCustomerSection::customerChoices() {
    const QString caption = u"Kunde auswählen"_s;
    m_picker->setMaximumWidth(pickerWidth);
    m_picker->setAccessibleName(caption);
    m_picker->onChosen([this](int index) { choose(index); });

    Row{aligned(invoiceForm::fieldLabel(u"Kundeninformationen:"_s), Qt::AlignTop),
        space(invoiceForm::labelGap), expanding(m_address)}
        .margins({0, invoiceForm::rowGap, 0, 0})
        .applyTo(*m_information);

    return asWidget(Column{Row{invoiceForm::fieldLabel(caption), space(invoiceForm::labelGap),
                               expanding(m_picker, invoiceForm::fieldShare), stretch()},
                           m_information});
}

void InvoiceCustomerSection::choose(int index) {
    const std::vector<Customer>& customers = m_timeStore.customers;
    const auto place = static_cast<std::size_t>(index - 1);
    m_view.selectedCustomerId =
        index > 0 && place < customers.size() ? std::optional(customers[place].id) : std::nullopt;
}

void InvoiceCustomerSection::refreshChoices() {
    if (m_shownRevision == m_timeStore.customers.revision())
        return;
    m_shownRevision = m_timeStore.customers.revision();
    std::vector<QString> choices{u"Bitte auswählen"_s};
    for (const Customer& customer : m_timeStore.customers.get())
        choices.push_back(screenText(customerChoice(customer)));
    m_picker->setOptions(choices);
}

int InvoiceCustomerSection::selectedIndex() const {
    const auto& customers = m_timeStore.customers.get();
    const auto isSelected = [this](const Customer& c) { return c.id == m_view.selectedCustomerId.get(); };
    const auto found = std::ranges::find_if(customers, isSelected);
    return found == customers.end() ? 0 : static_cast<int>(found - customers.begin()) + 1;
}

void InvoiceCustomerSection::refresh() {
    m_noCustomers->setVisible(m_timeStore.customers->empty());
    m_choices->setVisible(!m_timeStore.customers->empty());
    refreshChoices();
    m_picker->setSelectedIndex(selectedIndex());
    const auto customer = m_view.selectedCustomer();
    m_address->setValue(customer ? screenText(customer->formattedAddress()) : QString());
    m_information->setVisible(customer.has_value());
}

} // namespace brisklog
