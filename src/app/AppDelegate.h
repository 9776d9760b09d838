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

    /// Shows it at the anchor (none: at the top right of the screen) and gives it the keyboard.
    virtual void show(const std::optional<ScreenRectangle>& anchor) = 0;

    virtual void close() = 0;

    /// The appearance the desktop asks for; what the main view draws follows the user's setting on top of it.
    virtual void setAppearance(ColorScheme appearance) = 0;

    /// Creates the main view, with the projects section selected and its store, and makes it the content.
    virtual void loadContent() = 0;
};

/// Sets the program up at launch and opens and closes its popover.
class AppDelegate {
public:
    /// Makers are called once, when launching has finished.
    struct Parts {
        UserDefaults& userDefaults;
        SystemAppearance& systemAppearance;
        std::function<std::unique_ptr<Popover>()> makePopover;
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem;
    };

    explicit AppDelegate(Parts parts);

    /// Creates popover and main view, then the status item.
    void applicationDidFinishLaunching();

    /// The status item's action: closes an open popover, opens a closed one with the keyboard in it. Does
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

// Names of the design that are kept without behaviour: nothing creates these.

struct WindowManager {
    std::vector<QWindow*> windows;
};

struct SiriShortcutsManager {
    TimeTrackingStore& timeStore;
};

} // namespace brisklog
