#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>

namespace brisklog::test {

/// How a child process ended.
struct ChildEnd {
    /// The signal that killed it; 0 when it exited by itself.
    int signal = 0;
    /// Whether an expectation failed in it.
    bool failed = false;
};

/// Starts the work in a child process; returns its process id.
[[nodiscard]] pid_t startInChild(const std::function<void()>& work);

[[nodiscard]] ChildEnd waitForChild(pid_t child);

/// Runs the work in a child process and waits for it; failed expectations in it are reported.
[[nodiscard]] ChildEnd runInChild(const std::function<void()>& work);

/// The same as an unprivileged user who owns the folder and everything in it.
[[nodiscard]] ChildEnd runAsNobody(const std::filesystem::path& folder, const std::function<void()>& work);

/// A counter in memory that parent and child share.
class SharedCounter {
public:
    SharedCounter();
    ~SharedCounter();
    SharedCounter(const SharedCounter&) = delete;
    SharedCounter& operator=(const SharedCounter&) = delete;

    void set(long value) { m_count->store(value); }

    [[nodiscard]] long value() const { return m_count->load(); }

private:
    std::atomic<long>* m_count;
};

/// Runs endless work in a child process and kills it a random moment after the counter has passed `least`.
/// Returns once everything it started is gone too.
void killWhileWorking(const SharedCounter& progress, long least, const std::function<void()>& work);

/// Mounts a small file system on the folder, for this process alone; false where that is not allowed.
[[nodiscard]] bool mountSmallFileSystem(const std::filesystem::path& folder, const std::string& size);

} // namespace brisklog::test
