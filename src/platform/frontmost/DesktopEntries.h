#pragma once

#include "platform/frontmost/DesktopEntryFolder.h"
#include "platform/frontmost/WindowIdentity.h"

#include <map>
#include <vector>

namespace brisklog {

/// The folders in which desktop entries are installed, the user's own first.
[[nodiscard]] std::vector<std::filesystem::path> applicationFolders();

/// All installed applications. They are read on first use, and again after something has been installed. A
/// folder that does not answer within a second is left out until it does.
class DesktopEntries {
public:
    explicit DesktopEntries(const std::vector<std::filesystem::path>& folders = applicationFolders(),
                            const DesktopEntryFolder::Reader& read = readDesktopEntryFolder);

    /// The application a window belongs to: found by the entry's id, its window class, or the program it
    /// starts. Null rather than a guess: a program shared by several applications identifies none of them.
    [[nodiscard]] const DesktopEntry* find(const WindowIdentity& window);

    /// The application with exactly this id.
    [[nodiscard]] const DesktopEntry* withId(const std::string& id);

private:
    void readAgainIfChanged();
    void takeOver(const std::vector<DesktopEntryFolder::Content>& contents);
    [[nodiscard]] const DesktopEntry* byName(const std::string& name) const;
    [[nodiscard]] const DesktopEntry* byWindowClass(const std::string& name) const;
    [[nodiscard]] const DesktopEntry* byProgram(const std::string& program) const;

    std::vector<DesktopEntryFolder> m_folders;
    /// What the folders contained when the entries were taken from them.
    std::vector<DesktopEntryFolder::Content> m_read;
    std::map<std::string, DesktopEntry> m_entries;
};

} // namespace brisklog
