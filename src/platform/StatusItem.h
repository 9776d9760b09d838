#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brisklog {

/// A rectangle on the screen in logical pixels, origin at the top left.
struct ScreenRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenRectangle&) const = default;
};

/// The program's icon in the desktop's panel.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// The icon's name for screen readers and its tooltip.
    virtual void setDescription(const std::string& description) = 0;

    /// Called on a click on the icon.
    virtual void setAction(std::function<void()> action) = 0;

    /// Adds an entry to the end of the context menu.
    virtual void addMenuEntry(const std::string& caption, std::function<void()> action) = 0;

    /// Whether a panel currently shows the icon, so that the user can reach it. Asks the panel, which takes a
    /// moment.
    [[nodiscard]] virtual bool isReachable() const = 0;

    /// Where the icon was last clicked, or where it is, as far as the desktop reports it; absent otherwise.
    [[nodiscard]] virtual std::optional<ScreenRectangle> anchor() const = 0;
};

} // namespace brisklog
