#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/NotificationCenter.h"

#include <functional>

class QWidget;

namespace brisklog {

/// Sheets and panels that the project screens open but do not provide themselves. Each may be empty.
struct ProjectActions {
    /// Opens the customer sheet over the window that `from` is in.
    std::function<void(QWidget& from)> openCustomers;
    /// Opens the invoice sheet for the project at that position.
    std::function<void(QWidget& from, int projectIndex)> openInvoice;
    /// Creates the panel of automatic tracking when its tab is first shown.
    std::function<QWidget*()> makeAutoTrackingPanel;
};

/// What the project screens depend on.
struct ProjectScreenServices {
    TimeTrackingStore& store;
    const Clock& clock;
    NotificationCenter& notifications;
    ProjectActions actions;
};

} // namespace brisklog
