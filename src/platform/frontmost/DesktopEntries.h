#pragma once

#include "platform/frontmost/DesktopEntry.h"
#include "platform/frontmost/WindowIdentity.h"

#include <map>
#include <set>
#include <vector>

namespace brisklog {

/// The folders in which desktop entries are installed, the user's own first.
[[nodiscard]] std::vector<std::filesystem::path> applicationFolders();

/// All installed applications. They are read on first use, and again after something has been installed.
class DesktopEntries {
public:
    explicit DesktopEntries(std::vector<std::filesystem::path> folders = applicationFolders());

    /// The application a window belongs to: found by the entry's id, its window class, or the program it
    /// starts. Null rather than a guess: a program shared by several applications identifies none of them.
    [[nodiscard]] const DesktopEntry* find(const WindowIdentity& window);

    /// The application with exactly this id.
    [[nodiscard]] const DesktopEntry* withId(const std::string& id);

private:
    void readAgainIfChanged();
    void readFolder(const std::filesystem::path& root, std::set<std::string>& taken);
    [[nodiscard]] const DesktopEntry* byName(const std::string& name) const;
    [[nodiscard]] const DesktopEntry* byWindowClass(const std::string& name) const;
    [[nodiscard]] const DesktopEntry* byProgram(const std::string& program) const;

    using ChangeTimes = std::map<std::filesystem::path, std::filesystem::file_time_type>;
    [[nodiscard]] ChangeTimes changeTimes() const;

    std::vector<std::filesystem::path> m_roots;
    /// The folders inside the roots.
    std::vector<std::filesystem::path> m_folders;
    ChangeTimes m_read;
    std::map<std::string, DesktopEntry> m_entries;
};

} // namespace brisklog
