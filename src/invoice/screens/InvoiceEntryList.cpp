#include "invoice/screens/InvoiceEntryList.h"

#include "ui/lists/RowList.h"
#include "ui/look/Layout.h"

#include <QKeyEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int mostRowsWithoutScrolling = 12;
constexpr int heightWhenScrolling = InvoiceEntryDelegate::rowStep * 23 / 2;

} // namespace

InvoiceEntryList::InvoiceEntryList(InvoiceView& view, const Clock& clock)
    : m_model(view, clock), m_list(new RowList), m_delegate(new InvoiceEntryDelegate(m_model, *m_list)) {
    m_list->setAccessibleName(u"Einträge zur Abrechnung"_s);
    m_list->setAccessibleDescription(u"Leertaste wählt aus, Entf löscht."_s);
    m_list->setModel(&m_model);
    m_list->setItemDelegate(m_delegate);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
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

bool InvoiceEntryList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list)
        return event->type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent*>(event)->key());
    switch (event->type()) {
    case QEvent::MouseMove:
        pointerMoved(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
    case QEvent::Leave:
        m_delegate->setActiveTrash({}, false);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        pressed(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        released(*static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return false;
}

bool InvoiceEntryList::keyPressed(int key) {
    const QModelIndex index = m_list->currentIndex();
    if (key == Qt::Key_Space)
        toggle(index);
    else if (key == Qt::Key_Delete)
        deleteEntry(index);
    else
        return false;
    return true;
}

InvoiceEntryList::Part InvoiceEntryList::partAt(const QModelIndex& index, const QPoint& position) const {
    return index.isValid() ? InvoiceEntryDelegate::partAt(m_list->visualRect(index), position) : Part::none;
}

void InvoiceEntryList::pointerMoved(const QPoint& position) {
    const QModelIndex index = m_list->indexAt(position);
    const bool isTrash = partAt(index, position) == Part::trash;
    const bool isPressed = m_pressedPart == Part::trash && m_pressedIndex == index;
    m_delegate->setActiveTrash(isTrash ? index : QModelIndex(), isPressed);
}

void InvoiceEntryList::pressed(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint position = event.position().toPoint();
    m_pressedIndex = m_list->indexAt(position);
    m_pressedPart = partAt(m_pressedIndex, position);
    pointerMoved(position);
}

void InvoiceEntryList::released(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint position = event.position().toPoint();
    const QModelIndex index = m_list->indexAt(position);
    const Part part = partAt(index, position);
    const bool isSame = index == m_pressedIndex && part == m_pressedPart;
    m_pressedPart = Part::none;
    m_pressedIndex = QModelIndex();
    if (isSame && part == Part::row)
        toggle(index);
    else if (isSame && part == Part::trash)
        deleteEntry(index);
    pointerMoved(position);
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
