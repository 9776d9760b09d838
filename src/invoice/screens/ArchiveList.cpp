#include "invoice/screens/ArchiveList.h"

#include "invoice/screens/ArchiveDelegate.h"
#include "invoice/screens/ArchiveDetailsPanel.h"
#include "ui/controls/SymbolButton.h"
#include "ui/lists/RowList.h"
#include "ui/look/Layout.h"
#include "ui/look/Look.h"
#include "ui/look/Pointer.h"
#include "ui/look/ScreenReader.h"
#include "ui/sheets/Alert.h"

#include <QAccessibleWidget>
#include <QVariantAnimation>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int movementMilliseconds = 140;

/// Exposes the details of open invoices to screen readers: the toolkit does not expose widgets inside a
/// list's rows. Its children are the list and then the open details, in row order.
class ArchiveListAccessible final : public QAccessibleWidget {
public:
    explicit ArchiveListAccessible(ArchiveList& list) : QAccessibleWidget(&list, QAccessible::Grouping) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        // It is the list that has the focus.
        state.focused = false;
        return state;
    }

    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const auto all = children();
        const bool exists = index >= 0 && std::cmp_less(index, all.size());
        return exists ? QAccessible::queryAccessibleInterface(all[static_cast<std::size_t>(index)]) : nullptr;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto all = children();
        const auto found = std::ranges::find(all, child->object());
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }

private:
    [[nodiscard]] std::vector<QObject*> children() const {
        const auto& list = *static_cast<ArchiveList*>(widget());
        std::vector<QObject*> all{&list.list()};
        std::ranges::copy(list.openPanels(), std::back_inserter(all));
        return all;
    }
};

QAccessibleInterface* archiveListAccessible(const QString&, QObject* object) {
    auto* const list = dynamic_cast<ArchiveList*>(object);
    return list ? new ArchiveListAccessible(*list) : nullptr;
}

} // namespace

ArchiveList::ArchiveList(TimeTrackingStore& timeStore, ArchiveSheetView& view)
    : m_view(view), m_model(timeStore, view), m_list(new RowList(RowList::RowHeights::different)),
      m_delegate(new ArchiveDelegate(m_model, view, *m_list)) {
    m_list->setAccessibleName(u"Archivierte Rechnungen"_s);
    m_list->setAccessibleDescription(u"Die Leertaste zeigt Einzelheiten, Entf löscht."_s);
    m_list->setRows(m_model, *m_delegate);
    m_list->onKey([this](const QModelIndex& index, int key) { return keyPressed(index, key); });
    m_list->onPressed([this](const QModelIndex& index, RowPart) { toggle(index); });
    Column{m_list}.applyTo(*this);
    setFocusProxy(m_list);
    // Installing it again has no effect.
    QAccessible::installFactory(archiveListAccessible);
    setAccessibleName(m_list->accessibleName());
}

void ArchiveList::showInvoices() {
    m_model.synchronise();
    // The first current row is an invoice: the explanation and the month title above it cannot be opened.
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
    // The list gets no event when the pointer moves from an invoice to its details.
    if (event->type() == QEvent::Enter)
        m_list->forgetPointer();
    return QWidget::eventFilter(watched, event);
}

bool ArchiveList::keyPressed(const QModelIndex& index, int key) {
    if (!index.isValid())
        return false;
    const Uuid& id = m_model.rowAt(index).invoice.id;
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        toggle(index);
        return true;
    case Qt::Key_Right:
    case Qt::Key_Left:
        if (m_view.isOpen(id) == (key == Qt::Key_Left))
            toggle(index);
        return true;
    case Qt::Key_Delete:
        confirmDeleting(id);
        return true;
    default:
        return false;
    }
}

void ArchiveList::toggle(const QModelIndex& index) {
    const ArchiveRow& row = m_model.rowAt(index);
    m_view.toggle(row.invoice.id);
    m_list->setCurrentIndex(index);
    move(index);
    showPanels();
    m_list->announceRows();
    // Said as well, because the toolkit keeps it to itself that a row has opened.
    announce(*this,
             m_view.isOpen(row.invoice.id) ? m_model.spokenDetails(row) : u"Einzelheiten geschlossen"_s);
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
        onceNoButtonIsDown(*this, [this, row = QPersistentModelIndex(index)] { m_list->scrollTo(row); });
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
