#include "platform/frontmost/DesktopEntries.h"

#include <QStandardPaths>
#include <algorithm>
#include <cctype>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

/// For all folders together. Once it is over, one that does not answer costs nothing any more.
constexpr std::chrono::seconds patienceWithFolders(1);

std::string lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(letter < 0x80 ? std::tolower(letter) : letter);
    });
    return text;
}

/// "firefox" for "org.mozilla.firefox".
std::string lastPart(const std::string& id) {
    const std::size_t dot = id.rfind('.');
    return dot == std::string::npos ? id : id.substr(dot + 1);
}

/// The only matching entry that menus show, or if they show none, the only matching entry; null if there are
/// several.
template <class Condition>
const DesktopEntry* onlyOne(const std::map<std::string, DesktopEntry>& entries, Condition&& holds) {
    const DesktopEntry* found = nullptr;
    bool isAmbiguous = false;
    for (const auto& [id, entry] : entries) {
        if (!holds(entry) || (found != nullptr && found->isShown && !entry.isShown))
            continue;
        isAmbiguous = found != nullptr && found->isShown == entry.isShown;
        found = &entry;
    }
    return isAmbiguous ? nullptr : found;
}

} // namespace

std::vector<fs::path> applicationFolders() {
    std::vector<fs::path> folders;
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
        folders.emplace_back(folder.toStdString());
    return folders;
}

DesktopEntries::DesktopEntries(const std::vector<fs::path>& folders, const DesktopEntryFolder::Reader& read) {
    for (const fs::path& folder : folders)
        m_folders.emplace_back(folder, read);
}

const DesktopEntry* DesktopEntries::find(const WindowIdentity& window) {
    readAgainIfChanged();
    for (const std::string& name : window.names)
        if (const auto* const entry = byName(name))
            return entry;
    for (const std::string& name : window.names)
        if (const auto* const entry = byWindowClass(name))
            return entry;
    return byProgram(window.program);
}

const DesktopEntry* DesktopEntries::withId(const std::string& id) {
    readAgainIfChanged();
    const auto found = m_entries.find(id);
    return found == m_entries.end() ? nullptr : &found->second;
}

const DesktopEntry* DesktopEntries::byName(const std::string& name) const {
    if (const auto found = m_entries.find(name); found != m_entries.end())
        return &found->second;
    const std::string wanted = lower(name);
    if (const auto* const entry = onlyOne(
            m_entries, [&wanted](const DesktopEntry& candidate) { return lower(candidate.id) == wanted; }))
        return entry;
    return onlyOne(m_entries, [&wanted](const DesktopEntry& candidate) {
        return lower(lastPart(candidate.id)) == wanted;
    });
}

const DesktopEntry* DesktopEntries::byWindowClass(const std::string& name) const {
    const std::string wanted = lower(name);
    return onlyOne(m_entries, [&wanted](const DesktopEntry& candidate) {
        return lower(candidate.startupWindowClass) == wanted;
    });
}

const DesktopEntry* DesktopEntries::byProgram(const std::string& program) const {
    if (program.empty())
        return nullptr;
    return onlyOne(m_entries,
                   [&program](const DesktopEntry& candidate) { return candidate.program == program; });
}

void DesktopEntries::readAgainIfChanged() {
    for (DesktopEntryFolder& folder : m_folders)
        folder.look();
    const auto end = std::chrono::steady_clock::now() + patienceWithFolders;
    std::vector<DesktopEntryFolder::Content> contents;
    for (DesktopEntryFolder& folder : m_folders)
        contents.push_back(folder.contentBy(end));
    if (contents != m_read)
        takeOver(contents);
    m_read = std::move(contents);
}

/// Entries in earlier folders, even deleted ones, hide those with the same id in later folders.
void DesktopEntries::takeOver(const std::vector<DesktopEntryFolder::Content>& contents) {
    std::map<std::string, std::optional<DesktopEntry>> all;
    for (const auto& content : contents)
        all.insert(content->entries.begin(), content->entries.end());
    m_entries.clear();
    for (auto& [id, entry] : all)
        if (entry)
            m_entries.emplace(id, std::move(*entry));
}

} // namespace brisklog
