#include "ui/sheets/Screen.h"

#include <QMetaObject>

namespace brisklog {

void Screen::observe(ObservableObject& object) {
    m_subscriptions.push_back(object.observe([this] { refreshSoon(); }));
    m_isRefreshDue = true;
}

void Screen::refreshSoon() {
    m_isRefreshDue = true;
    if (m_isRefreshPosted || !isVisible())
        return;
    m_isRefreshPosted = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isRefreshPosted = false;
            if (m_isRefreshDue && isVisible())
                refreshNow();
        },
        Qt::QueuedConnection);
}

void Screen::refreshNow() {
    m_isRefreshDue = false;
    refresh();
}

void Screen::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_isRefreshDue)
        refreshNow();
}

} // namespace brisklog
