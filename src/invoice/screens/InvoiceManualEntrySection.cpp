#include "invoice/screens/InvoiceSections.h"

#include "foundation/Calendar.h"
#include "invoice/screens/InvoiceFormLayout.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/TextField.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rateWidth = 120;

LayoutBox labelled(const QString& label, const LayoutBox& fields) {
    return Row{invoiceForm::fieldLabel(label), space(invoiceForm::labelGap), expanding(fields)};
}

} // namespace

InvoiceManualEntrySection::InvoiceManualEntrySection(TimeTrackingStore& timeStore, InvoiceView& view,
                                                     const Clock& clock)
    : m_view(view), m_clock(clock), m_date(new DateTimeField(u"Datum:"_s, clock.calendar().firstWeekday())),
      m_description(new TextField(u"Beschreibung"_s)), m_hours(new Stepper(0, 23, u"h"_s, u"Stunden"_s)),
      m_minutes(new Stepper(0, 59, u"m"_s, u"Minuten"_s)), m_rate(new TextField(u"Stundenlohn"_s)),
      m_add(new Button(u"Eintrag hinzufügen"_s)) {
    m_rate->setMaximumWidth(rateWidth);
    m_add->setSymbol(u"plus"_s);
    Column rows{
        labelled(u"Datum:"_s, Row{m_date, stretch()}), labelled(u"Beschreibung:"_s, Row{m_description}),
        labelled(u"Dauer:"_s, Row{m_hours, m_minutes, stretch()}.spacing(8)),
        labelled(u"Stundenlohn:"_s, Row{expanding(m_rate, invoiceForm::fieldShare), stretch(), m_add})};
    rows.spacing(invoiceForm::rowGap);
    Column{invoiceForm::heading(u"Manueller Eintrag"_s), invoiceForm::card(rows)}.applyTo(*this);
    connectFields();
    // Its tick also signals a change of the time zone.
    observe(timeStore);
    observe(m_view);
}

void InvoiceManualEntrySection::connectFields() {
    m_date->onEdited([this](const QDateTime& edited) {
        m_view.manualDate = m_clock.calendar().momentOf(edited.date(), edited.time());
    });
    m_description->onEdited([this](const QString& typed) { m_view.manualDescription = typed.toStdString(); });
    m_hours->onStepped([this](int hours) { m_view.manualHours = hours; });
    m_minutes->onStepped([this](int minutes) { m_view.manualMinutes = minutes; });
    for (Stepper* const stepper : {m_hours, m_minutes})
        stepper->onTypedText([this](const QString& typed) { typeDuration(typed); });
    m_rate->onEdited([this](const QString& typed) { m_view.manualRate = typed.toStdString(); });
    m_add->onClick([this] { add(); });
}

void InvoiceManualEntrySection::typeDuration(const QString& typed) {
    // At once: the stepper may go on stepping from the new number.
    if (m_view.typeManualDuration(typed.toStdString()))
        refresh();
}

void InvoiceManualEntrySection::add() {
    m_hours->takeOver();
    m_minutes->takeOver();
    m_view.addManualEntry();
}

void InvoiceManualEntrySection::refresh() {
    m_date->setMoment(m_clock.calendar().localTime(m_view.manualDate));
    m_description->setValue(screenText(*m_view.manualDescription));
    m_hours->setNumber(static_cast<int>(m_view.manualHours));
    m_minutes->setNumber(static_cast<int>(m_view.manualMinutes));
    m_rate->setValue(screenText(*m_view.manualRate));
}

} // namespace brisklog
