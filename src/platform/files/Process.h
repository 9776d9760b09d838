#pragma once

#include "platform/Log.h"

#include <filesystem>

namespace brisklog {

/// Ensures that only one process per user writes the user's files, with or without a session bus.
class ProcessLock {
public:
    enum class State {
        held,        ///< this process holds it until it ends, in whatever way
        heldByOther, ///< another process of this user holds it
        unavailable, ///< the lock file cannot be created; nothing is known about others
    };

    /// Tries to take the lock at once; `path` is the lock file, whose folder is created if missing.
    explicit ProcessLock(const std::filesystem::path& path);
    ~ProcessLock();
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;

    [[nodiscard]] State state() const { return m_state; }

private:
    int m_file = -1;
    State m_state = State::unavailable;
};

/// Prints to this process's standard output and flushes each line. Failures, such as a closed or full output,
/// are ignored.
class StandardOutputLog final : public Log {
public:
    void print(std::string_view line) override;
};

/// Makes a write beyond the process's size limit, or to a pipe without a reader, return an error like any
/// other failed write instead of ending the process. Must be called once, before anything is written;
/// programs started by this one are not affected.
void surviveFailedWrites();

} // namespace brisklog
