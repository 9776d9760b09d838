#pragma once

#include "platform/Log.h"

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

/// Prints to this process's standard output, each line at once. A closed or full output is ignored.
class StandardOutputLog final : public Log {
public:
    void print(std::string_view line) override;
};

/// Makes a write beyond the process's size limit, or to a pipe nobody reads, return an error like any other
/// failed write instead of ending the process. To be called once, before anything is written; programs
/// started by this one are not affected.
void surviveFailedWrites();

} // namespace brisklog
