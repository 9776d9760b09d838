#include "invoice/screens/ArchiveList.h"

#include "app/components/Layout.h"
#include "app/components/ListView.h"
#include "app/components/Look.h"
#include "app/components/Sheets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QVariantAnimation>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int movementMilliseconds = 140;

} // namespace

ArchiveList::ArchiveList(TimeTrackingStore& timeStore, ArchiveSheetView& view)
    : m_view(view), m_model(timeStore, view), m_list(new ListView(ListView::RowHeights::different)),
      m_delegate(new ArchiveDelegate(m_model, view, *m_list)) {
    m_list->setAccessibleName(u"Archivierte Rechnungen"_s);
    m_list->setAccessibleDescription(u"Die Leertaste zeigt Einzelheiten, Entf löscht."_s);
    m_list->setModel(&m_model);
    m_list->setItemDelegate(m_delegate);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    Column{m_list}.applyTo(*this);
    setFocusProxy(m_list);
}

void ArchiveList::showInvoices() {
    m_model.synchronise();
    // The keyboard starts at an invoice: the sentence and the month above it cannot be opened.
    if (!m_list->currentIndex().isValid())
        m_list->setCurrentIndex(m_model.firstInvoice());
    m_list->viewport()->update();
}

bool ArchiveList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list)
        return event->type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent*>(event)->key());
    switch (event->type()) {
    case QEvent::MouseMove:
        pointerMoved(static_cast<QMouseEvent*>(event)->position().toPoint());
        break;
    case QEvent::Leave:
        m_delegate->setActive({}, Part::none, false);
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
        confirmDeleting(index);
        return true;
    default:
        return false;
    }
}

ArchiveList::Part ArchiveList::partAt(const QModelIndex& index, const QPoint& position) const {
    return index.isValid() ? m_delegate->partAt(index, m_list->visualRect(index), position) : Part::none;
}

void ArchiveList::pointerMoved(const QPoint& position) {
    const QModelIndex index = m_list->indexAt(position);
    const Part part = partAt(index, position);
    const bool isPressed = part != Part::none && m_pressedPart == part && m_pressedIndex == index;
    m_delegate->setActive(part == Part::none ? QModelIndex() : index, part, isPressed);
}

void ArchiveList::pressed(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint position = event.position().toPoint();
    m_pressedIndex = m_list->indexAt(position);
    m_pressedPart = partAt(m_pressedIndex, position);
    pointerMoved(position);
}

void ArchiveList::released(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const QPoint position = event.position().toPoint();
    const QModelIndex index = m_list->indexAt(position);
    const Part part = partAt(index, position);
    const bool isSame = index == m_pressedIndex && part == m_pressedPart;
    m_pressedPart = Part::none;
    m_pressedIndex = QModelIndex();
    pointerMoved(position);
    if (isSame && part == Part::head)
        toggle(index);
    else if (isSame && part == Part::trash)
        confirmDeleting(index);
}

void ArchiveList::toggle(const QModelIndex& index) {
    m_view.toggle(m_model.rowAt(index).invoice.id);
    move(index);
}

void ArchiveList::move(const QModelIndex& index) {
    delete m_movement;
    const bool opens = m_view.isOpen(m_model.rowAt(index).invoice.id);
    m_movement = new QVariantAnimation(this);
    m_movement->setStartValue(opens ? 0.0 : 1.0);
    m_movement->setEndValue(opens ? 1.0 : 0.0);
    m_movement->setDuration(motionAllowed() ? movementMilliseconds : 0);
    m_movement->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_movement, &QVariantAnimation::valueChanged, this,
            [this, row = QPersistentModelIndex(index)](const QVariant& shown) {
                m_delegate->setMoving(row, shown.toDouble());
            });
    connect(m_movement, &QVariantAnimation::finished, this,
            [this, row = QPersistentModelIndex(index), opens] {
                m_delegate->setMoving({}, 0);
                if (opens)
                    m_list->scrollTo(row);
            });
    m_movement->start(QAbstractAnimation::DeleteWhenStopped);
}

void ArchiveList::confirmDeleting(const QModelIndex& index) {
    presentAlert(*this,
                 {.title = u"Archivierte Rechnung löschen?"_s,
                  .message =
                      u"Diese Aktion kann nicht rückgängig gemacht werden. Die Zeiteinträge bleiben als "
                      "abgerechnet markiert."_s},
                 [this, id = m_model.rowAt(index).invoice.id] { m_view.deleteInvoice(id); });
}

} // namespace brisklog
