#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace brisklog {

/// Is told by a window that it is about to close.
class DetailWindowDelegate {
public:
    /// May destroy the delegate.
    std::function<void()> onWindowClose;

    void windowWillClose() const;
};

/// A window on the desktop with a day's detail. Letting go of it leaves the window where it is: that one
/// stays until the user closes it.
class DetailWindowController {
public:
    virtual ~DetailWindowController() = default;

    /// Whether its window still exists and is open; one that is minimised is.
    [[nodiscard]] virtual bool isWindowVisible() const = 0;
};

/// Knows the detail windows that are open. A window hears of its delegate only for as long as it is known
/// here.
class DetailWindowManager {
public:
    struct Entry {
        std::shared_ptr<DetailWindowController> controller;
        std::shared_ptr<DetailWindowDelegate> delegate;
    };

    DetailWindowManager() = default;
    DetailWindowManager(const DetailWindowManager&) = delete;
    DetailWindowManager& operator=(const DetailWindowManager&) = delete;

    /// Forgets all windows that are no longer visible, then keeps this one until it closes, in the place of
    /// one that was kept under the same key.
    void registerWindow(std::shared_ptr<DetailWindowController> controller,
                        std::shared_ptr<DetailWindowDelegate> delegate, const std::string& key);

    /// By key, which has a prefix here.
    [[nodiscard]] const std::map<std::string, Entry>& windowControllers() const {
        return *m_windowControllers;
    }

private:
    /// Shared so that a window that outlives the manager can tell.
    std::shared_ptr<std::map<std::string, Entry>> m_windowControllers =
        std::make_shared<std::map<std::string, Entry>>();
};

} // namespace brisklog
