#include "ui/lists/ScrollArea.h"

#include "ui/lists/FloatingScrollBar.h"

#include <QApplication>
#include <QScrollBar>

namespace brisklog {
namespace {

constexpr int step = 24;
/// What has the focus keeps that distance from the edge.
constexpr int focusMargin = 12;
/// What is left around the part that has the focus, so that its ring is seen too.
constexpr int roomForFocus = 12;

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameStyle(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(step);
    FloatingScrollBar::attach(*this);
    // The toolkit does so for the tab key alone; a screen reader sets the focus directly.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now))
            bringIntoView(*now);
    });
    if (content)
        setContent(content);
}

void ScrollArea::setContent(QWidget* content) {
    setWidget(content);
    // The toolkit has just made it paint a ground of its own.
    content->setAutoFillBackground(false);
}

/// The toolkit is content when a field's cursor is in view.
bool ScrollArea::focusNextPrevChild(bool next) {
    if (!QScrollArea::focusNextPrevChild(next))
        return false;
    const QWidget* const focused = focusWidget();
    if (focused && widget()->isAncestorOf(focused)) {
        const QPoint middle = focused->mapTo(widget(), focused->rect().center());
        ensureVisible(middle.x(), middle.y(), 0, focused->height() / 2 + roomForFocus);
    }
    return true;
}

/// The whole of it: the toolkit's own way stops once a field's cursor is seen.
void ScrollArea::bringIntoView(const QWidget& part) {
    const QRect place(part.mapTo(widget(), QPoint(0, 0)), part.size());
    if (place.height() + 2 * focusMargin <= viewport()->height())
        ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + focusMargin);
}

QSize ScrollArea::sizeHint() const { return widget() ? widget()->sizeHint() : QSize(0, 0); }

} // namespace brisklog
