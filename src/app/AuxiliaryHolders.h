#pragma once

#include "core/TimeTrackingStore.h"

#include <vector>

class QWindow;

/// Names of the design that are kept without behaviour: nothing creates these.
namespace brisklog {

struct WindowManager {
    std::vector<QWindow*> windows;
};

struct SiriShortcutsManager {
    TimeTrackingStore& timeStore;
};

} // namespace brisklog
