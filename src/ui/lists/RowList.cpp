#include "ui/lists/RowList.h"

#include "ui/lists/FloatingScrollBar.h"
#include "ui/look/Palette.h"

#include <QFocusEvent>

namespace brisklog {

RowList::RowList(RowHeights heights, QWidget* parent) : QListView(parent) {
    setFrameStyle(QFrame::NoFrame);
    setUniformItemSizes(heights == RowHeights::alike);
    setVerticalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    viewport()->setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
    clearGround(*this);
    FloatingScrollBar::attach(*this);
}

void RowList::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    m_isFocusFromKeyboard = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                            (m_isFocusFromKeyboard && reason == Qt::ActiveWindowFocusReason);
    QListView::focusInEvent(event);
    // Something must be current for the arrows to start from and for the ring to show.
    if (m_isFocusFromKeyboard && !currentIndex().isValid() && model() && model()->rowCount() > 0)
        setCurrentIndex(model()->index(0, 0));
    viewport()->update();
}

void RowList::keyPressEvent(QKeyEvent* event) {
    m_isFocusFromKeyboard = true;
    QListView::keyPressEvent(event);
    viewport()->update();
}

} // namespace brisklog
