#include "platform/frontmost/DesktopEntries.h"

#include <QStandardPaths>
#include <algorithm>
#include <cctype>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view entryEnding = ".desktop";

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

std::string idOf(const fs::path& root, const fs::path& file) {
    std::string id = file.lexically_relative(root).string();
    id.resize(id.size() - entryEnding.size());
    std::ranges::replace(id, '/', '-');
    return id;
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

DesktopEntries::DesktopEntries(std::vector<fs::path> folders) : m_roots(std::move(folders)) {}

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

DesktopEntries::ChangeTimes DesktopEntries::changeTimes() const {
    ChangeTimes times;
    for (const auto* const folders : {&m_roots, &m_folders})
        for (const fs::path& folder : *folders) {
            std::error_code error;
            if (const auto time = fs::last_write_time(folder, error); !error)
                times.emplace(folder, time);
        }
    return times;
}

void DesktopEntries::readAgainIfChanged() {
    if (!m_read.empty() && changeTimes() == m_read)
        return;
    m_entries.clear();
    m_folders.clear();
    std::set<std::string> taken;
    for (const fs::path& root : m_roots)
        readFolder(root, taken);
    m_read = changeTimes();
}

/// Entries in earlier folders, even deleted ones, hide those with the same id in later folders.
void DesktopEntries::readFolder(const fs::path& root, std::set<std::string>& taken) {
    std::error_code error;
    constexpr auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator file(root, options, error), end; !error && file != end;
         file.increment(error)) {
        std::error_code none;
        if (file->is_directory(none))
            m_folders.push_back(file->path());
        if (file->path().extension() != entryEnding)
            continue;
        std::string id = idOf(root, file->path());
        if (!taken.insert(id).second)
            continue;
        if (auto entry = readDesktopEntry(id, file->path()))
            m_entries.emplace(std::move(id), std::move(*entry));
    }
}

} // namespace brisklog
