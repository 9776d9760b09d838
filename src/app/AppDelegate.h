#pragma once

#include "platform/Appearance.h"
#include "platform/StatusItem.h"
#include "platform/UserDefaults.h"

#include <functional>
#include <memory>
#include <vector>

class QWindow;

namespace brisklog {

class TimeTrackingStore;

/// The small window that hangs from the status item.
class Popover {
public:
    virtual ~Popover() = default;

    [[nodiscard]] virtual bool isShown() const = 0;

    /// Shows it at the anchor (none: at the top right of the screen) and gives it the focus.
    virtual void show(const std::optional<ScreenRectangle>& anchor) = 0;

    virtual void close() = 0;

    /// Sets the desktop's appearance; the content of the main view follows the user's setting instead.
    virtual void setAppearance(ColorScheme appearance) = 0;

    /// Creates the main view and its store, with the projects section selected, as the content.
    virtual void loadContent() = 0;
};

/// Sets the program up at launch and opens and closes its popover.
class AppDelegate {
public:
    /// The makers are called once, when launching has finished.
    struct Parts {
        UserDefaults& userDefaults;
        SystemAppearance& systemAppearance;
        std::function<std::unique_ptr<Popover>()> makePopover;
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem;
    };

    explicit AppDelegate(Parts parts);

    /// Creates the popover and the main view, then the status item.
    void applicationDidFinishLaunching();

    /// The status item's action: closes an open popover, or opens a closed one and gives it the focus. Does
    /// nothing before launching has finished.
    void togglePopover();

    /// Opens the popover, or brings it to the front.
    void openPopover();

private:
    void applyLaunchAppearance();

    Parts m_parts;
    std::unique_ptr<Popover> m_popover;
    std::unique_ptr<StatusItem> m_statusItem;
};

// Kept only as names of the design; nothing creates these.

struct WindowManager {
    std::vector<QWindow*> windows;
};

struct SiriShortcutsManager {
    TimeTrackingStore& timeStore;
};

} // namespace brisklog
