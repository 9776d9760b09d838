#pragma once

#include "platform/frontmost/DesktopEntry.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>

namespace brisklog {

/// What a folder with its subfolders contains.
struct DesktopEntryFolderContent {
    /// By id; absent where the file there is not an application, which hides those in later folders too.
    std::map<std::string, std::optional<DesktopEntry>> entries;
    /// When each of the folders was changed last.
    std::map<std::filesystem::path, std::filesystem::file_time_type> changeTimes;
};

/// Reads a folder of desktop entries, if it has changed since `known` was read.
[[nodiscard]] DesktopEntryFolderContent readDesktopEntryFolder(const std::filesystem::path& root,
                                                               const DesktopEntryFolderContent& known);

/// A folder of desktop entries that is read beside the main thread: one on a network drive that is gone never
/// answers.
class DesktopEntryFolder {
public:
    using Reader = std::function<decltype(readDesktopEntryFolder)>;
    using Content = std::shared_ptr<const DesktopEntryFolderContent>;
    using Moment = std::chrono::steady_clock::time_point;

    DesktopEntryFolder(std::filesystem::path root, Reader read);

    /// Begins to look for changes, unless an earlier look has not ended yet.
    void look();

    /// What the last look has found, waiting for the one under way until then. A look that has been waited
    /// for in vain is not waited for again.
    [[nodiscard]] Content contentBy(Moment end);

private:
    struct State;

    std::filesystem::path m_root;
    Reader m_read;
    /// Shared with the thread that reads, which may outlive this object.
    std::shared_ptr<State> m_state;
    bool m_isLate = false;
};

} // namespace brisklog
