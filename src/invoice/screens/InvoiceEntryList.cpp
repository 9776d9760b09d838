#include "invoice/screens/InvoiceEntryList.h"

#include "invoice/screens/InvoiceEntryDelegate.h"
#include "ui/lists/RowList.h"
#include "ui/look/Layout.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int mostRowsWithoutScrolling = 12;
constexpr int heightWhenScrolling = InvoiceEntryDelegate::rowStep * 23 / 2;

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
        m_list->scrollToBottom();
    m_list->viewport()->update();
}

void InvoiceEntryList::fitHeight() {
    const int rows = m_model.rowCount();
    setFixedHeight(rows > mostRowsWithoutScrolling ? heightWhenScrolling
                                                   : rows * InvoiceEntryDelegate::rowStep);
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
