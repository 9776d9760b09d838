#include "support/ChildProcess.h"

#include <chrono>
#include <csignal>
#include <grp.h>
#include <gtest/gtest.h>
#include <new>
#include <random>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

constexpr int nobody = 65534;

void giveToNobody(const fs::path& path) {
    if (::lchown(path.c_str(), nobody, nobody) != 0)
        ADD_FAILURE() << path << " cannot be given away";
}

void becomeNobody() {
    if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
        ADD_FAILURE() << "cannot become nobody";
}

void waitRandomMoment() {
    static std::mt19937 chance{std::random_device{}()};
    const auto moment = std::chrono::microseconds(std::uniform_int_distribution(0, 3000)(chance));
    for (const auto end = std::chrono::steady_clock::now() + moment;
         std::chrono::steady_clock::now() < end;) {
    }
}

} // namespace

pid_t startInChild(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    work();
    ::_exit(::testing::Test::HasFailure() ? 1 : 0);
}

ChildEnd waitForChild(pid_t child) {
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        return {.signal = 0, .failed = true};
    if (WIFSIGNALED(status))
        return {.signal = WTERMSIG(status), .failed = true};
    return {.signal = 0, .failed = WEXITSTATUS(status) != 0};
}

ChildEnd runInChild(const std::function<void()>& work) { return waitForChild(startInChild(work)); }

ChildEnd runAsNobody(const fs::path& folder, const std::function<void()>& work) {
    if (::geteuid() != 0)
        return runInChild(work);
    giveToNobody(folder);
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        giveToNobody(entry.path());
    return runInChild([&work] {
        becomeNobody();
        work();
    });
}

SharedCounter::SharedCounter() {
    void* const memory =
        ::mmap(nullptr, sizeof(std::atomic<long>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    m_count = new (memory) std::atomic<long>(0);
}

SharedCounter::~SharedCounter() { ::munmap(m_count, sizeof *m_count); }

void killWhileWorking(const SharedCounter& progress, long least, const std::function<void()>& work) {
    int ends[2] = {};
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = startInChild([&] {
        ::close(ends[0]);
        work();
    });
    ::close(ends[1]);
    ASSERT_GT(child, 0);
    while (progress.value() <= least && ::waitpid(child, nullptr, WNOHANG) == 0)
        ::sched_yield();
    waitRandomMoment();
    EXPECT_EQ(::kill(child, SIGKILL), 0) << "the work ended before it was killed";
    EXPECT_EQ(waitForChild(child).signal, SIGKILL);
    // The pipe ends once every process that the child started is gone too.
    char unused = 0;
    EXPECT_EQ(::read(ends[0], &unused, 1), 0);
    ::close(ends[0]);
}

bool mountSmallFileSystem(const fs::path& folder, const std::string& size) {
    return ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", folder.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0;
}

} // namespace brisklog::test
