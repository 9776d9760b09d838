#include "app/components/ScrollArea.h"

#include "app/components/FloatingScrollBar.h"

#include <QScrollBar>

namespace brisklog {
namespace {

constexpr int step = 24;

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameStyle(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(step);
    FloatingScrollBar::attach(*this);
    if (content)
        setContent(content);
}

void ScrollArea::setContent(QWidget* content) {
    setWidget(content);
    // The toolkit has just made it paint a ground of its own.
    content->setAutoFillBackground(false);
}

QSize ScrollArea::sizeHint() const { return widget() ? widget()->sizeHint() : QSize(0, 0); }

} // namespace brisklog
