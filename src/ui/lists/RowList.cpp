#include "ui/lists/RowList.h"

#include "ui/lists/FloatingScrollBar.h"
#include "ui/lists/RowDelegate.h"
#include "ui/lists/RowListAccessible.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Palette.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr int smallestStep = 8;

QAccessibleInterface* rowListAccessible(const QString&, QObject* object) {
    auto* const list = dynamic_cast<RowList*>(object);
    return list != nullptr ? new RowListAccessible(*list) : nullptr;
}

} // namespace

RowList::RowList(RowHeights heights, QWidget* parent) : QListView(parent) {
    setFrameStyle(QFrame::NoFrame);
    setUniformItemSizes(heights == RowHeights::alike);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    // Would scroll a row into view that has been clicked: 500 ms later another one is under the pointer.
    setAutoScroll(false);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
    clearGround(*this);
    FloatingScrollBar::attach(*this);
    // Installing it again has no effect.
    QAccessible::installFactory(rowListAccessible);
}

void RowList::setRows(QAbstractItemModel& model, RowDelegate& delegate) {
    m_delegate = &delegate;
    // Before the view itself is told, which asks for the rows' interfaces.
    const auto rowsChanged = [this] { ++m_rowsRevision; };
    connect(&model, &QAbstractItemModel::rowsInserted, this, rowsChanged);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, rowsChanged);
    connect(&model, &QAbstractItemModel::layoutChanged, this, rowsChanged);
    connect(&model, &QAbstractItemModel::modelReset, this, rowsChanged);
    setModel(&model);
    setItemDelegate(&delegate);
}

void RowList::onClicked(std::function<void(const QModelIndex&)> clicked) {
    m_handleClick = std::move(clicked);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& row) { m_handleClick(row); });
}

void RowList::pressRow(const QModelIndex& row, RowPart part) {
    if (!row.flags().testFlag(Qt::ItemIsEnabled))
        return;
    if (m_handlePress)
        m_handlePress(row, part);
    else if (m_handleClick)
        m_handleClick(row);
}

void RowList::focusRow(const QModelIndex& row) {
    m_isFocusFromKeyboard = true;
    setCurrentIndex(row);
    setFocus(Qt::TabFocusReason);
    scrollTo(row);
    viewport()->update();
}

bool RowList::hasTrash() const { return m_delegate != nullptr && m_delegate->hasTrash(); }

QRect RowList::pressArea(const QModelIndex& row) const {
    const QRect area = visualRect(row);
    return m_delegate != nullptr ? m_delegate->pressArea(area, row) : area;
}

void RowList::announceRows() {
    if (auto* const known = dynamic_cast<RowListAccessible*>(QAccessible::queryAccessibleInterface(this)))
        known->announceChanges();
}

void RowList::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    QListView::dataChanged(first, last, roles);
    announceRows();
}

/// The toolkit tells screen readers only that the list has the focus.
void RowList::announceCurrentRow() {
    if (!hasFocus() || !currentIndex().isValid())
        return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(currentIndex().row());
    QAccessible::updateAccessibility(&focused);
}

/// The wheel turns several steps at once, by default of a row each. In a low list that could take a row from
/// below its edge to above it.
void RowList::updateGeometries() {
    QListView::updateGeometries();
    const int row = sizeHintForRow(0);
    if (row <= 0)
        return;
    const int room = viewport()->height() - row;
    const int step = room / std::max(QApplication::wheelScrollLines(), 1);
    verticalScrollBar()->setSingleStep(std::clamp(step, std::min(smallestStep, row), row));
}

void RowList::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    m_isFocusFromKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                            (m_isFocusFromKeyboard && reason == Qt::ActiveWindowFocusReason);
    QListView::focusInEvent(event);
    // The arrow keys and the focus ring need a current row.
    if (m_isFocusFromKeyboard && !currentIndex().isValid() && model() && model()->rowCount() > 0)
        setCurrentIndex(model()->index(0, 0));
    if (m_isFocusFromKeyboard && reason != Qt::ActiveWindowFocusReason)
        scrollTo(currentIndex());
    viewport()->update();
    // After the toolkit's own announcement.
    QMetaObject::invokeMethod(
        this, [this] { announceCurrentRow(); }, Qt::QueuedConnection);
}

void RowList::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QListView::scrollTo(index, hint);
    auto* const page = ScrollArea::around(*this);
    if (page && index.isValid())
        page->bringIntoView(*viewport(), visualRect(index));
}

/// In a page, the page keys move by what is in view of the list, which is as high as all its rows.
QModelIndex RowList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const auto* const page = ScrollArea::around(*this);
    const QModelIndex current = currentIndex();
    const bool isByPage = action == MovePageUp || action == MovePageDown;
    if (!page || !isByPage || !current.isValid())
        return QListView::moveCursor(action, modifiers);
    const int rows = std::max(1, page->viewport()->height() / visualRect(current).height() - 1);
    const int wanted = current.row() + (action == MovePageUp ? -rows : rows);
    return model()->index(std::clamp(wanted, 0, model()->rowCount() - 1), current.column());
}

void RowList::keyPressEvent(QKeyEvent* event) {
    const QPointer<QWidget> stillThere(this);
    const QPersistentModelIndex before = currentIndex();
    const bool isHandled = m_handleKey && m_handleKey(before, event->key());
    if (!isHandled) {
        m_isFocusFromKeyboard = true;
        QListView::keyPressEvent(event);
        viewport()->update();
    }
    if (stillThere && (isHandled || currentIndex() != before))
        scrollTo(currentIndex());
}

bool RowList::viewportEvent(QEvent* event) {
    const auto* const mouse = dynamic_cast<QMouseEvent*>(event);
    const bool isLeft = mouse && mouse->button() == Qt::LeftButton;
    switch (event->type()) {
    case QEvent::MouseMove:
        setHovered(spotAt(mouse->position().toPoint()));
        break;
    case QEvent::Leave:
        forgetPointer();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (isLeft)
            pressed(mouse->position().toPoint());
        break;
    case QEvent::MouseButtonRelease:
        if (isLeft)
            released(mouse->position().toPoint());
        break;
    default:
        break;
    }
    return QListView::viewportEvent(event);
}

RowList::Spot RowList::spotAt(const QPoint& position) const {
    const QModelIndex row = indexAt(position);
    if (!row.isValid() || !m_handlePress)
        return {};
    const RowPart part = m_delegate->partAt(visualRect(row), position, row);
    return part == RowPart::none ? Spot{} : Spot{row, part};
}

void RowList::setHovered(const Spot& spot) {
    if (m_hovered == spot)
        return;
    m_hovered = spot;
    viewport()->update();
}

void RowList::pressed(const QPoint& position) {
    m_pressed = spotAt(position);
    // A finger presses without having moved there before.
    setHovered(m_pressed);
    viewport()->update();
}

void RowList::released(const QPoint& position) {
    const Spot spot = spotAt(position);
    const bool isSame = spot == std::exchange(m_pressed, {});
    if (isSame && spot.part != RowPart::none)
        m_handlePress(spot.row, spot.part);
    // A different row may be under the pointer now.
    if (m_hovered.part != RowPart::none)
        setHovered(spotAt(position));
    viewport()->update();
}

} // namespace brisklog
