#include "ui/lists/ScrollArea.h"

#include "ui/lists/FloatingScrollBar.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>
#include <QScrollBar>

namespace brisklog {
namespace {

constexpr int step = 24;
/// What is brought into view keeps that distance from the edge, so that its focus ring is visible too.
constexpr int margin = 12;

/// Keeps in view what the keyboard or a screen reader has moved the focus to. The pointer moves no page: what
/// it is on would be somewhere else at the next click.
class FocusFollower final : public QObject {
public:
    /// The application's only one.
    static void install() {
        static QPointer<FocusFollower> installed;
        if (!installed)
            installed = new FocusFollower;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::Shortcut:
            m_isAtKeyboard = true;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
        case QEvent::TouchBegin:
            m_isAtKeyboard = false;
            break;
        case QEvent::FocusIn:
            if (auto* const focused = qobject_cast<QWidget*>(watched);
                focused && isFollowed(static_cast<QFocusEvent*>(event)->reason()))
                follow(*focused);
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    FocusFollower() : QObject(qApp) { qApp->installEventFilter(this); }

    [[nodiscard]] bool isFollowed(Qt::FocusReason reason) const {
        switch (reason) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            // A widget that hides when it is clicked also passes its focus on "with Tab".
            return m_isAtKeyboard;
        case Qt::OtherFocusReason:
            // Screen readers give no reason.
            return QGuiApplication::mouseButtons() == Qt::NoButton;
        default:
            return false;
        }
    }

    static void follow(const QWidget& focused) {
        if (auto* const area = ScrollArea::around(focused))
            area->bringIntoView(focused, focused.rect());
    }

    bool m_isAtKeyboard = true;
};

} // namespace

ScrollArea::ScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameStyle(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(step);
    FloatingScrollBar::attach(*this);
    FocusFollower::install();
    if (content)
        setContent(content);
}

void ScrollArea::setContent(QWidget* content) {
    setWidget(content);
    // `setWidget` has just turned this on.
    content->setAutoFillBackground(false);
}

/// Not the toolkit's, which scrolls whatever has moved the focus.
bool ScrollArea::focusNextPrevChild(bool next) { return QWidget::focusNextPrevChild(next); }

ScrollArea* ScrollArea::around(const QWidget& part) {
    // A menu belongs to its button, but is a window of its own.
    for (const QWidget* each = &part; each && !each->isWindow(); each = each->parentWidget())
        if (auto* const area = dynamic_cast<ScrollArea*>(each->parentWidget()))
            return area;
    return nullptr;
}

void ScrollArea::bringIntoView(const QWidget& part, const QRect& area) {
    const QRect place(part.mapTo(widget(), area.topLeft()), area.size());
    if (place.height() + 2 * margin <= viewport()->height())
        ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2 + margin);
}

QSize ScrollArea::sizeHint() const { return widget() ? widget()->sizeHint() : QSize(0, 0); }

} // namespace brisklog
