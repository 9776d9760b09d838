#include "platform/files/Process.h"

#include "foundation/Text.h"
#include "platform/files/PosixFiles.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace brisklog {

ProcessLock::ProcessLock(const std::filesystem::path& path) {
    if (PosixFiles().createFolder(path.parent_path()).failed())
        return;
    m_file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_file < 0)
        return;
    if (::flock(m_file, LOCK_EX | LOCK_NB) == 0)
        m_state = State::held;
    else if (errno == EWOULDBLOCK)
        m_state = State::heldByOther;
}

ProcessLock::~ProcessLock() {
    if (m_file >= 0)
        ::close(m_file);
}

void StandardOutputLog::print(std::string_view line) {
    const std::string whole = text::onOneLine(std::string(line)) + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stdout);
    std::fflush(stdout);
}

void surviveFailedWrites() {
    // A handler that does nothing, because SIG_IGN would be inherited by programs that we start.
    struct sigaction nothing {};

    nothing.sa_handler = [](int /*signal*/) {};
    nothing.sa_flags = SA_RESTART;
    sigaction(SIGXFSZ, &nothing, nullptr);
    sigaction(SIGPIPE, &nothing, nullptr);
}

} // namespace brisklog
