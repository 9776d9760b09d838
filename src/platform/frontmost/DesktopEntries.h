#pragma once

#include "platform/frontmost/DesktopEntry.h"
#include "platform/frontmost/WindowIdentity.h"

#include <map>
#include <set>
#include <vector>

namespace brisklog {

/// The folders in which desktop entries are installed, the user's own first.
[[nodiscard]] std::vector<std::filesystem::path> applicationFolders();

/// All installed applications. It reads them when it is first asked, and again after something was installed.
class DesktopEntries {
public:
    explicit DesktopEntries(std::vector<std::filesystem::path> folders = applicationFolders());

    /// The application a window belongs to: by the entry's id, by the class the entry announces, by the
    /// program it starts. Absent rather than a guess: a program that several applications share tells
    /// nothing.
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
    /// Of every folder that was read, those inside the roots too.
    std::vector<std::filesystem::path> m_folders;
    ChangeTimes m_read;
    std::map<std::string, DesktopEntry> m_entries;
};

} // namespace brisklog
