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

    /// What a screen reader calls the icon, also its tooltip.
    virtual void setDescription(const std::string& description) = 0;

    /// A click on the icon.
    virtual void setAction(std::function<void()> action) = 0;

    /// Where the icon was last clicked, or lies, as far as the desktop tells; absent otherwise.
    [[nodiscard]] virtual std::optional<ScreenRectangle> anchor() const = 0;
};

/// The small window that hangs from the status item.
class Popover {
public:
    virtual ~Popover() = default;

    [[nodiscard]] virtual bool isShown() const = 0;

    /// Shows it at the anchor (none: at the top right of the screen) and gives it the keyboard.
    virtual void show(const std::optional<ScreenRectangle>& anchor) = 0;

    virtual void close() = 0;
};

} // namespace brisklog
