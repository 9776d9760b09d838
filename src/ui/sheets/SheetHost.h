#pragma once

#include <memory>

namespace brisklog {

/// A window that closes by itself unless somebody keeps it open: the popover. Sheets find it by walking up
/// their parent windows.
class SheetHost {
public:
    virtual ~SheetHost() = default;

    /// The window stays open while one of the tokens lives. A token may outlive the host.
    [[nodiscard]] virtual std::shared_ptr<void> holdOpen() = 0;

    /// Raises and activates the window: called when a sheet or panel has ended.
    virtual void takeFocusBack() = 0;
};

} // namespace brisklog
