#pragma once

#include <filesystem>

namespace brisklog {

/// Makes sure that one process a user writes the user's files, with or without a session bus.
class ProcessLock {
public:
    enum class State {
        held,        ///< this process has it, until it ends, however it ends
        heldByOther, ///< another process of this user has it
        unavailable, ///< the lock file cannot be made; nothing is known about others
    };

    /// Tries to take the lock at once; `path` is the lock file, its folder is made.
    explicit ProcessLock(const std::filesystem::path& path);
    ~ProcessLock();
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;

    [[nodiscard]] State state() const { return m_state; }

private:
    int m_file = -1;
    State m_state = State::unavailable;
};

} // namespace brisklog
