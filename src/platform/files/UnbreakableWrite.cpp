#include "platform/files/UnbreakableWrite.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <memory>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brisklog {
namespace {

struct Work {
    int file;
    std::string_view bytes;
};

/// Makes only system calls, because it may run while the process is being killed.
int writeFromBeginning(void* argument) {
    const auto [file, bytes] = *static_cast<const Work*>(argument);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::pwrite(file, bytes.data() + written, bytes.size() - written, static_cast<off_t>(written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0 ? EIO : errno;
        written += static_cast<std::size_t>(count);
    }
    return ::ftruncate(file, static_cast<off_t>(bytes.size())) == 0 ? 0 : errno;
}

/// Blocks all signals for as long as it exists.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &m_before);
    }

    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before{};
};

int endOf(pid_t helper) {
    int status = 0;
    pid_t ended = 0;
    do
        ended = ::waitpid(helper, &status, static_cast<int>(__WCLONE));
    while (ended < 0 && errno == EINTR);
    return ended == helper && WIFEXITED(status) ? WEXITSTATUS(status) : EIO;
}

} // namespace

int writeUnbreakably(int file, std::string_view bytes) {
    constexpr std::size_t stackSize = 65536;
    const auto stack = std::make_unique_for_overwrite<std::byte[]>(stackSize);
    Work work{file, bytes};
    // A killed process abandons its write at the next page boundary. A helper process that shares our memory
    // finishes it even then; meanwhile this thread is suspended, as by vfork. The memory exists until the
    // helper has ended, and with signals blocked, the helper never runs our signal handlers.
    const SignalsBlocked quiet;
    const int helper = ::clone(writeFromBeginning, stack.get() + stackSize, CLONE_VM | CLONE_VFORK, &work);
    return helper < 0 ? writeFromBeginning(&work) : endOf(helper);
}

} // namespace brisklog
