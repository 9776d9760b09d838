#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace brisklog {

/// Notified by a window that is about to close.
class DetailWindowDelegate {
public:
    /// May destroy the delegate.
    std::function<void()> onWindowClose;

    void windowWillClose() const;
};

/// Refers to a window with a day's details. Destroying the controller leaves the window open until the user
/// closes it.
class DetailWindowController {
public:
    virtual ~DetailWindowController() = default;

    /// Whether its window still exists and is open; minimised counts as open.
    [[nodiscard]] virtual bool isWindowVisible() const = 0;
};

/// Keeps track of the open detail windows and keeps their delegates alive.
class DetailWindowManager {
public:
    struct Entry {
        std::shared_ptr<DetailWindowController> controller;
        std::shared_ptr<DetailWindowDelegate> delegate;
    };

    DetailWindowManager() = default;
    DetailWindowManager(const DetailWindowManager&) = delete;
    DetailWindowManager& operator=(const DetailWindowManager&) = delete;

    /// Forgets all windows that are no longer visible, then keeps this one until it closes, replacing any
    /// kept under the same key.
    void registerWindow(std::shared_ptr<DetailWindowController> controller,
                        std::shared_ptr<DetailWindowDelegate> delegate, const std::string& key);

    /// By key, with a prefix added.
    [[nodiscard]] const std::map<std::string, Entry>& windowControllers() const {
        return *m_windowControllers;
    }

private:
    /// Shared, so that a window that outlives the manager can notice.
    std::shared_ptr<std::map<std::string, Entry>> m_windowControllers =
        std::make_shared<std::map<std::string, Entry>>();
};

} // namespace brisklog
