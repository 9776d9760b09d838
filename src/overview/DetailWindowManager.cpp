#include "overview/DetailWindowManager.h"

namespace brisklog {

void DetailWindowDelegate::windowWillClose() const {
    // A copy: the action may destroy this.
    if (const auto action = onWindowClose)
        action();
}

void DetailWindowManager::registerWindow(std::shared_ptr<DetailWindowController> controller,
                                         std::shared_ptr<DetailWindowDelegate> delegate,
                                         const std::string& key) {
    const std::string fullKey = "detailWindowController_" + key;
    std::erase_if(*m_windowControllers,
                  [](const auto& kept) { return !kept.second.controller->isWindowVisible(); });
    delegate->onWindowClose = [known = std::weak_ptr(m_windowControllers), fullKey] {
        if (const auto controllers = known.lock())
            controllers->erase(fullKey);
    };
    m_windowControllers->insert_or_assign(fullKey, Entry{std::move(controller), std::move(delegate)});
}

} // namespace brisklog
