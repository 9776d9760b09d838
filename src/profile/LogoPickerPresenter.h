#pragma once

#include <functional>
#include <string>

namespace brisklog {

/// Shows the window in which the user picks a logo. There is at most one.
class LogoPickerPresenter {
public:
    /// Receives the bytes of the chosen image.
    using Completion = std::function<void(std::string bytes)>;

    virtual ~LogoPickerPresenter() = default;

    /// Shows the picker and returns at once; a picker that is already open is replaced. `completed` is called
    /// on the main thread when an image was chosen, never when the user closed the window.
    virtual void present(const std::string& title, Completion completed) = 0;

    /// Closes the picker; may be called from within `completed`. Nothing happens when none is open.
    virtual void close() = 0;
};

} // namespace brisklog
