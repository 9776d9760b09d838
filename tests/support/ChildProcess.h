#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>

namespace brisklog::test {

/// How a child process ended.
struct ChildEnd {
    /// The signal that ended it; 0 when it ended by itself.
    int signal = 0;
    /// Whether an expectation failed in it.
    bool failed = false;
};

/// Starts the work in a process of its own; the answer is its number.
[[nodiscard]] pid_t startInChild(const std::function<void()>& work);

/// Waits until the process has ended.
[[nodiscard]] ChildEnd waitForChild(pid_t child);

/// Runs the work in a process of its own; expectations in it count.
[[nodiscard]] ChildEnd runInChild(const std::function<void()>& work);

/// The same as a user without special rights, who owns the folder and everything in it.
[[nodiscard]] ChildEnd runAsNobody(const std::filesystem::path& folder, const std::function<void()>& work);

/// Counts in memory that parent and child share.
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

/// Runs endless work in a process of its own and kills it as soon as the counter is past `least` and a moment
/// of chance is over. Returns once nothing of it is left.
void killWhileWorking(const SharedCounter& progress, long least, const std::function<void()>& work);

/// Puts a small file system over the folder, for this process alone; false where that is not allowed.
[[nodiscard]] bool mountSmallFileSystem(const std::filesystem::path& folder, const std::string& size);

} // namespace brisklog::test
