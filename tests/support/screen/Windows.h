#pragma once

#include <QApplication>
#include <QWidget>
#include <vector>

namespace brisklog::test {

/// The windows of that type on the screen, oldest first.
template <class Window>
[[nodiscard]] std::vector<Window*> visibleWindows() {
    std::vector<Window*> windows;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const window = dynamic_cast<Window*>(widget); window && window->isVisible())
            windows.push_back(window);
    return windows;
}

/// The oldest window of that type on the screen; null when there is none.
template <class Window>
[[nodiscard]] Window* visibleWindow() {
    const std::vector<Window*> windows = visibleWindows<Window>();
    return windows.empty() ? nullptr : windows.front();
}

} // namespace brisklog::test
