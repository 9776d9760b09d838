#include "invoice/screens/InvoiceSections.h"

#include "invoice/screens/InvoiceEntryList.h"
#include "invoice/screens/InvoiceFormLayout.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/look/Figures.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// Aligns the total's right edge with the amounts in the rows.
constexpr int amountInset = 48;
constexpr int noEntriesHeight = 26;

Label* caption(const QString& text) { return new Label(text, FontRole::body13, &Palette::secondary); }

} // namespace

InvoiceEntriesSection::InvoiceEntriesSection(TimeTrackingStore& timeStore, InvoiceView& view,
                                             const Clock& clock)
    : m_view(view), m_list(new InvoiceEntryList(view, clock)),
      m_noEntries(new Label(u"Keine Einträge vorhanden."_s, FontRole::body13, &Palette::secondary)),
      m_selectAll(new Button(u"Alle auswählen"_s, Button::Kind::secondary, Button::Size::small)),
      m_deselectAll(new Button(u"Alle abwählen"_s, Button::Kind::secondary, Button::Size::small)),
      m_entryCount(new FigureLabel({}, FontRole::body13Medium)),
      m_totalTime(new FigureLabel({}, FontRole::body13Medium)),
      m_totalAmount(new FigureLabel({}, FontRole::title17)) {
    m_noEntries->setFixedHeight(noEntriesHeight);
    auto* card = new Card(Column{Row{m_list}.margins({2, 0, 2, 0}), Row{space(14), m_noEntries}, space(10),
                                 Row{expanding(new Hairline(Hairline::Kind::card))}.margins({14, 0, 14, 0}),
                                 summary()},
                          {0, 10, 0, 0});
    Column{invoiceForm::heading(u"Einträge zur Abrechnung"_s, selectionButtons()), card}.applyTo(*this);
    observe(timeStore);
    observe(m_view);
}

LayoutBox InvoiceEntriesSection::selectionButtons() {
    m_selectAll->onClick([this] { m_view.selectAllEntries(); });
    m_deselectAll->onClick([this] { m_view.deselectAllEntries(); });
    return Row{m_selectAll, m_deselectAll}.spacing(8);
}

LayoutBox InvoiceEntriesSection::summary() {
    m_totalAmount->setMinimumHeight(lineHeight(FontRole::title17));
    return Row{caption(u"Ausgewählte Einträge:"_s),
               space(4),
               m_entryCount,
               space(24),
               caption(u"Gesamtzeit:"_s),
               space(4),
               m_totalTime,
               stretch(),
               m_totalAmount}
        .margins({14, 12, amountInset, 14});
}

void InvoiceEntriesSection::refresh() {
    const bool isEmpty = m_view.entryStatuses->empty();
    m_list->showRows();
    m_list->setVisible(!isEmpty);
    m_noEntries->setVisible(isEmpty);
    const InvoiceSummary sums = m_view.summary();
    m_entryCount->setValue(screenText(sums.entryCount));
    m_totalTime->setValue(screenText(sums.totalTime));
    m_totalAmount->setValue(screenText(sums.totalAmount.value_or("")));
    m_totalAmount->setVisible(sums.totalAmount.has_value());
}

} // namespace brisklog
