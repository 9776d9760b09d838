#pragma once

#include "foundation/Observable.h"

#include <QWidget>
#include <vector>

namespace brisklog {

/// A widget that shows state. It observes objects and rereads the state in `refresh`: at most once per turn
/// of the event loop, however many announcements there were; never while hidden, but right before it is
/// shown.
class Screen : public QWidget {
public:
    explicit Screen(QWidget* parent = nullptr) : QWidget(parent) {}

protected:
    /// Refreshes after every announcement of the object.
    void observe(ObservableObject& object);

    /// Reads the state and updates the widgets. Idempotent; must not change the state it reads.
    virtual void refresh() = 0;

    /// Refreshes as if something observed had changed; for the screen's own view state.
    void refreshSoon();

    void showEvent(QShowEvent* event) override;

private:
    void refreshNow();

    std::vector<Subscription> m_subscriptions;
    bool m_isRefreshDue = false;
    bool m_isRefreshPosted = false;
};

} // namespace brisklog
