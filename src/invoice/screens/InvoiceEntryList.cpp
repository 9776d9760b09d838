#include "invoice/screens/InvoiceEntryList.h"

#include "invoice/screens/InvoiceEntryDelegate.h"
#include "ui/lists/RowList.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Layout.h"

#include <QScrollBar>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// Above that, the toolkit's largest widget is too low for all rows, and the list scrolls by itself.
constexpr int mostRowsInFull = QWIDGETSIZE_MAX / InvoiceEntryDelegate::rowStep;

} // namespace

InvoiceEntryList::InvoiceEntryList(InvoiceView& view, const Clock& clock)
    : m_model(view, clock), m_list(new RowList) {
    m_list->setAccessibleName(u"Einträge zur Abrechnung"_s);
    m_list->setAccessibleDescription(u"Leertaste wählt aus, Entf löscht."_s);
    m_list->setRows(m_model, *new InvoiceEntryDelegate(m_model, *m_list));
    m_list->onKey([this](const QModelIndex& index, int key) { return keyPressed(index, key); });
    m_list->onPressed([this](const QModelIndex& index, RowPart part) {
        part == RowPart::trash ? deleteEntry(index) : toggle(index);
    });
    Column{m_list}.applyTo(*this);
    setFocusProxy(m_list);
}

void InvoiceEntryList::showRows() {
    const int before = m_model.rowCount();
    m_model.synchronise();
    fitHeight();
    const bool rowWasAdded = before > 0 && m_model.rowCount() == before + 1;
    if (rowWasAdded)
        showNewRow();
    m_list->viewport()->update();
}

/// What is below the list stays where it is: the pointer is still on the button that has added the row.
void InvoiceEntryList::showNewRow() {
    layOutNow(*this);
    if (const auto* const page = ScrollArea::around(*this)) {
        QScrollBar& bar = *page->verticalScrollBar();
        bar.setValue(bar.value() + InvoiceEntryDelegate::rowStep);
    }
    m_list->scrollTo(m_model.index(m_model.rowCount() - 1));
}

void InvoiceEntryList::fitHeight() {
    setFixedHeight(std::min(m_model.rowCount(), mostRowsInFull) * InvoiceEntryDelegate::rowStep);
}

bool InvoiceEntryList::keyPressed(const QModelIndex& index, int key) {
    if (key == Qt::Key_Space)
        toggle(index);
    else if (key == Qt::Key_Delete)
        deleteEntry(index);
    else
        return false;
    return true;
}

void InvoiceEntryList::toggle(const QModelIndex& index) {
    if (index.isValid())
        m_model.row(index).onToggle();
}

void InvoiceEntryList::deleteEntry(const QModelIndex& index) {
    m_model.deleteEntry(index);
    fitHeight();
}

} // namespace brisklog
