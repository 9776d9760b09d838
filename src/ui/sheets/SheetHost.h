#pragma once

#include <memory>

namespace brisklog {

/// A window that closes by itself unless it is held open: the popover. Sheets find it by walking up their
/// parent windows.
class SheetHost {
public:
    virtual ~SheetHost() = default;

    /// The window stays open while any of these tokens exists. A token may outlive the host.
    [[nodiscard]] virtual std::shared_ptr<void> holdOpen() = 0;

    /// Raises and activates the window; called when a sheet or panel has closed.
    virtual void takeFocusBack() = 0;
};

} // namespace brisklog
