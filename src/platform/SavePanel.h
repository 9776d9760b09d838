#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace brisklog {

/// What a save panel for a PDF document shows.
struct SaveRequest {
    std::string title;
    /// The suggested file name, including ".pdf". What a file name cannot contain ("/", control characters)
    /// is replaced before it is shown.
    std::string suggestedName;
};

/// Asks the user where to save a document.
class SavePanel {
public:
    /// Receives the chosen file; none when the user cancelled.
    using Completion = std::function<void(std::optional<std::filesystem::path>)>;

    virtual ~SavePanel() = default;

    /// Shows the panel on the window that has the focus and returns at once. `completed` is called later, on
    /// the main thread, exactly once.
    virtual void present(const SaveRequest& request, Completion completed) = 0;
};

} // namespace brisklog
