#include "platform/frontmost/DesktopEntryFolder.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view entryEnding = ".desktop";

std::string idOf(const fs::path& root, const fs::path& file) {
    std::string id = file.lexically_relative(root).string();
    id.resize(id.size() - entryEnding.size());
    std::ranges::replace(id, '/', '-');
    return id;
}

void noteChangeTime(DesktopEntryFolderContent& content, const fs::path& folder) {
    std::error_code error;
    if (const auto time = fs::last_write_time(folder, error); !error)
        content.changeTimes.emplace(folder, time);
}

bool isUnchanged(const fs::path& root, const DesktopEntryFolderContent& known) {
    DesktopEntryFolderContent now;
    noteChangeTime(now, root);
    for (const auto& [folder, time] : known.changeTimes)
        noteChangeTime(now, folder);
    return now.changeTimes == known.changeTimes;
}

} // namespace

DesktopEntryFolderContent readDesktopEntryFolder(const fs::path& root,
                                                 const DesktopEntryFolderContent& known) {
    if (isUnchanged(root, known))
        return known;
    DesktopEntryFolderContent content;
    noteChangeTime(content, root);
    std::error_code error;
    constexpr auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator file(root, options, error), end; !error && file != end;
         file.increment(error)) {
        std::error_code none;
        if (file->is_directory(none))
            noteChangeTime(content, file->path());
        if (file->path().extension() != entryEnding)
            continue;
        std::string id = idOf(root, file->path());
        auto entry = readDesktopEntry(id, file->path());
        content.entries.emplace(std::move(id), std::move(entry));
    }
    return content;
}

struct DesktopEntryFolder::State {
    std::mutex mutex;
    std::condition_variable ended;
    bool isLooking = false;
    Content content = std::make_shared<const DesktopEntryFolderContent>();
};

DesktopEntryFolder::DesktopEntryFolder(fs::path root, Reader read)
    : m_root(std::move(root)), m_read(std::move(read)), m_state(std::make_shared<State>()) {}

void DesktopEntryFolder::look() {
    const std::scoped_lock lock(m_state->mutex);
    if (std::exchange(m_state->isLooking, true))
        return;
    m_isLate = false;
    std::thread([state = m_state, read = m_read, root = m_root, known = m_state->content] {
        auto content = std::make_shared<const DesktopEntryFolderContent>(read(root, *known));
        const std::scoped_lock changing(state->mutex);
        state->content = content->changeTimes == known->changeTimes ? known : std::move(content);
        state->isLooking = false;
        state->ended.notify_all();
    }).detach();
}

DesktopEntryFolder::Content DesktopEntryFolder::contentBy(Moment end) {
    std::unique_lock lock(m_state->mutex);
    if (!m_isLate)
        m_isLate = !m_state->ended.wait_until(lock, end, [this] { return !m_state->isLooking; });
    return m_state->content;
}

} // namespace brisklog
