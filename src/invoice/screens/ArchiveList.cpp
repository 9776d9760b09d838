#include "invoice/screens/ArchiveList.h"

#include "invoice/screens/ArchiveDelegate.h"
#include "invoice/screens/ArchiveDetailsPanel.h"
#include "invoice/screens/ArchiveListAccessible.h"
#include "ui/controls/SymbolButton.h"
#include "ui/lists/RowList.h"
#include "ui/look/Layout.h"
#include "ui/look/Look.h"
#include "ui/sheets/Sheets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QVariantAnimation>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int movementMilliseconds = 140;

} // namespace

ArchiveList::ArchiveList(TimeTrackingStore& timeStore, ArchiveSheetView& view)
    : m_view(view), m_model(timeStore, view), m_list(new RowList(RowList::RowHeights::different)),
      m_delegate(new ArchiveDelegate(m_model, view, *m_list)) {
    m_list->setAccessibleName(u"Archivierte Rechnungen"_s);
    m_list->setAccessibleDescription(u"Die Leertaste zeigt Einzelheiten, Entf löscht."_s);
    m_list->setModel(&m_model);
    m_list->setItemDelegate(m_delegate);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    Column{m_list}.applyTo(*this);
    setFocusProxy(m_list);
    installArchiveListAccessible();
}

void ArchiveList::showInvoices() {
    m_model.synchronise();
    // The keyboard starts at an invoice: the sentence and the month above it cannot be opened.
    if (!m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_model.firstInvoice());
    showPanels();
    m_list->viewport()->update();
}

std::vector<ArchiveDetailsPanel*> ArchiveList::openPanels() const {
    std::vector<QModelIndex> rows;
    for (const Uuid& id : *m_view.openInvoices)
        if (const QModelIndex row = m_model.indexOf(id); row.isValid())
            rows.push_back(row);
    std::ranges::sort(rows, {}, &QModelIndex::row);
    std::vector<ArchiveDetailsPanel*> panels;
    for (const QModelIndex& row : rows)
        if (auto* panel = static_cast<ArchiveDetailsPanel*>(m_list->indexWidget(row)))
            panels.push_back(panel);
    return panels;
}

void ArchiveList::showPanels() {
    for (const Uuid& id : *m_view.openInvoices)
        if (const QModelIndex row = m_model.indexOf(id); row.isValid())
            panelOf(row).setDetails(m_view.details(m_model.rowAt(row).invoice));
    QWidget* previous = m_list;
    for (const ArchiveDetailsPanel* panel : openPanels()) {
        setTabOrder(previous, &panel->deleteButton());
        previous = &panel->deleteButton();
    }
}

ArchiveDetailsPanel& ArchiveList::panelOf(const QModelIndex& index) {
    if (auto* panel = static_cast<ArchiveDetailsPanel*>(m_list->indexWidget(index)))
        return *panel;
    const Uuid& id = m_model.rowAt(index).invoice.id;
    auto* panel = new ArchiveDetailsPanel([this, id] { confirmDeleting(id); });
    panel->installEventFilter(this);
    m_list->setIndexWidget(index, panel);
    return *panel;
}

bool ArchiveList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list)
        return event->type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent*>(event)->key());
    switch (event->type()) {
    case QEvent::MouseMove:
        pointerMoved(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
    case QEvent::Enter:
    case QEvent::Leave:
        // Of the rows' surface, or of details that lie on it.
        m_delegate->setHovered({});
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

bool ArchiveList::keyPressed(int key) {
    const QModelIndex index = m_list->currentIndex();
    if (!index.isValid())
        return false;
    const bool isOpen = m_view.isOpen(m_model.rowAt(index).invoice.id);
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        toggle(index);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Left:
        if (isOpen == (key == Qt::Key_Left))
            toggle(index);
        return true;
    case Qt::Key_Delete:
        confirmDeleting(m_model.rowAt(index).invoice.id);
        return true;
    default:
        return false;
    }
}

QModelIndex ArchiveList::headAt(const QPoint& position) const {
    const QModelIndex index = m_list->indexAt(position);
    const bool isHead = index.isValid() && m_delegate->isOnHead(index, m_list->visualRect(index), position);
    return isHead ? index : QModelIndex();
}

void ArchiveList::pointerMoved(const QPoint& position) { m_delegate->setHovered(headAt(position)); }

void ArchiveList::pressed(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton)
        m_pressed = headAt(event.position().toPoint());
}

void ArchiveList::released(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QModelIndex index = headAt(event.position().toPoint());
    const bool isSame = index.isValid() && index == m_pressed;
    m_pressed = QModelIndex();
    if (isSame)
        toggle(index);
}

void ArchiveList::toggle(const QModelIndex& index) {
    m_view.toggle(m_model.rowAt(index).invoice.id);
    m_list->setCurrentIndex(index);
    move(index);
    showPanels();
}

void ArchiveList::move(const QModelIndex& index) {
    if (m_movement) {
        delete m_movement;
        movementEnded(m_moving);
    }
    m_moving = index;
    const bool opens = m_view.isOpen(m_model.rowAt(index).invoice.id);
    m_delegate->setMoving(index, opens ? 0 : 1);
    m_movement = glide(
        *this, opens ? 0 : 1, opens ? 1 : 0, movementMilliseconds,
        [this](double shown) { m_delegate->setMoving(m_moving, shown); },
        [this] { movementEnded(m_moving); });
}

void ArchiveList::movementEnded(const QModelIndex& index) {
    m_delegate->setMoving({}, 0);
    if (!index.isValid())
        return;
    if (m_view.isOpen(m_model.rowAt(index).invoice.id))
        m_list->scrollTo(index);
    else
        m_list->setIndexWidget(index, nullptr);
}

void ArchiveList::confirmDeleting(const Uuid& id) {
    presentAlert(*this,
                 {.title = u"Archivierte Rechnung löschen?"_s,
                  .message = u"Diese Aktion kann nicht rückgängig gemacht werden. Die Zeiteinträge bleiben "
                             "als abgerechnet markiert."_s},
                 [this, id] { m_view.deleteInvoice(id); });
}

} // namespace brisklog
