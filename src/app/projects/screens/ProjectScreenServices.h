#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/NotificationCenter.h"

#include <functional>

class QWidget;

namespace brisklog {

/// What the project screens open that others provide. Each may be absent.
struct ProjectActions {
    /// Opens the customers over the window `from` is in.
    std::function<void(QWidget& from)> openCustomers;
    /// Opens the invoice sheet for the project at that position.
    std::function<void(QWidget& from, int projectIndex)> openInvoice;
    /// Makes the panel of automatic tracking, when its tab is first shown.
    std::function<QWidget*()> makeAutoTrackingPanel;
};

/// What the project screens work with.
struct ProjectScreenServices {
    TimeTrackingStore& store;
    const Clock& clock;
    NotificationCenter& notifications;
    ProjectActions actions;
};

} // namespace brisklog
