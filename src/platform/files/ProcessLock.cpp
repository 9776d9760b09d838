#include "platform/files/ProcessLock.h"

#include "platform/files/PosixFiles.h"

#include <cerrno>
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

} // namespace brisklog
