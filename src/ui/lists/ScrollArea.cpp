#include "ui/lists/ScrollArea.h"

#include "ui/lists/FloatingScrollBar.h"

#include <QApplication>
#include <QScrollBar>

namespace brisklog {
namespace {

constexpr int step = 24;
/// The focused widget keeps that distance from the edge.
constexpr int focusMargin = 12;
/// The room left around the focused widget, so that its ring is visible too.
constexpr int roomForFocus = 12;

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameStyle(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(step);
    FloatingScrollBar::attach(*this);
    // The toolkit does so only for the Tab key, but screen readers set the focus directly.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now))
            bringIntoView(*now);
    });
    if (content)
        setContent(content);
}

void ScrollArea::setContent(QWidget* content) {
    setWidget(content);
    // `setWidget` has just turned this on.
    content->setAutoFillBackground(false);
}

/// The toolkit stops scrolling once a field's cursor is visible.
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

/// Shows all of it: the toolkit stops scrolling once a field's cursor is visible.
void ScrollArea::bringIntoView(const QWidget& part) {
    const QRect place(part.mapTo(widget(), QPoint(0, 0)), part.size());
    if (place.height() + 2 * focusMargin <= viewport()->height())
        ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + focusMargin);
}

QSize ScrollArea::sizeHint() const { return widget() ? widget()->sizeHint() : QSize(0, 0); }

} // namespace brisklog
