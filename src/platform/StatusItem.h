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

    /// What a right click offers, in the order in which it was added.
    virtual void addMenuEntry(const std::string& caption, std::function<void()> action) = 0;

    /// Whether a panel shows the icon just now, so that the user can get at it. Asks the panel, which takes a
    /// moment.
    [[nodiscard]] virtual bool isReachable() const = 0;

    /// Where the icon was last clicked, or lies, as far as the desktop tells; absent otherwise.
    [[nodiscard]] virtual std::optional<ScreenRectangle> anchor() const = 0;
};

} // namespace brisklog
