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
    /// Writes the report of the project's entries to a file of the user's choice.
    std::function<void(const Project& project)> exportReport;
};

/// What the project screens work with.
struct ProjectScreensContext {
    TimeTrackingStore& store;
    Clock& clock;
    RunLoop& runLoop;
    NotificationCenter& notifications;
    ProjectActions actions;
};

} // namespace brisklog
