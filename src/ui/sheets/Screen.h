#pragma once

#include "foundation/Observable.h"

#include <QWidget>
#include <vector>

namespace brisklog {

/// A widget that shows state. It watches what it is told to and reads it anew in `refresh`: at most once per
/// turn of the event loop however many announcements came, never while hidden, and right before it is shown.
class Screen : public QWidget {
public:
    explicit Screen(QWidget* parent = nullptr) : QWidget(parent) {}

protected:
    /// Every announcement of the object leads to a refresh.
    void observe(ObservableObject& object);

    /// Reads the state and sets the widgets. Idempotent; must not change the state it reads.
    virtual void refresh() = 0;

    /// As if something observed had changed; for view state of the screen's own.
    void refreshSoon();

    void showEvent(QShowEvent* event) override;

private:
    void refreshNow();

    std::vector<Subscription> m_subscriptions;
    bool m_isRefreshDue = false;
    bool m_isRefreshPosted = false;
};

} // namespace brisklog
