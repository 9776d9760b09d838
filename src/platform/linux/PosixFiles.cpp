#include "platform/linux/PosixFiles.h"

#include <QStandardPaths>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

constexpr mode_t fileMode = 0600;
/// What the user's own mask then takes away.
constexpr mode_t documentMode = 0666;
constexpr mode_t folderMode = 0700;

Error systemError(const fs::path& path, int code) {
    return Error{path.string() + ": " + std::strerror(code)};
}

/// An open file that is closed with its last use.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }

    [[nodiscard]] int number() const { return m_number; }

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

private:
    int m_number;
};

std::optional<fs::path> absoluteFolder(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::optional<fs::path>(value) : std::nullopt;
}

/// The folder a variable names, else one inside the user's home.
std::optional<fs::path> folderNamed(const char* variable, const char* insideHome) {
    if (auto named = absoluteFolder(variable))
        return named;
    const auto home = absoluteFolder("HOME");
    return home ? std::optional(*home / insideHome) : std::nullopt;
}

Result<Done> writeAll(const Descriptor& file, std::string_view bytes, const fs::path& path) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::pwrite(file.number(), bytes.data() + written, bytes.size() - written,
                                       static_cast<off_t>(written));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return systemError(path, count == 0 ? EIO : errno);
        written += static_cast<std::size_t>(count);
    }
    return Done{};
}

/// Makes sure there is room for the whole new content before a byte of the old one is touched.
Result<Done> reserve(const Descriptor& file, std::size_t length, const fs::path& path) {
    if (length == 0)
        return Done{};

    struct stat before {};

    if (::fstat(file.number(), &before) != 0)
        return systemError(path, errno);
    const int code = ::posix_fallocate(file.number(), 0, static_cast<off_t>(length));
    if (code == 0 || code == EOPNOTSUPP || code == EINVAL)
        return Done{};
    // A reservation that ran out of room half-way may have grown the file: give that back.
    if (::ftruncate(file.number(), before.st_size) != 0)
        return systemError(path, errno);
    return systemError(path, code);
}

/// Opens a file for `overwrite`, without truncating: until the room is reserved, the old content stays whole.
Descriptor openForOverwriting(const fs::path& path, mode_t mode) {
    return Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, mode));
}

Result<Done> overwrite(const Descriptor& file, std::string_view bytes, const fs::path& path) {
    if (!file.isOpen())
        return systemError(path, errno);
    if (auto reserved = reserve(file, bytes.size(), path); reserved.failed())
        return reserved;
    if (auto written = writeAll(file, bytes, path); written.failed())
        return written;
    if (::ftruncate(file.number(), static_cast<off_t>(bytes.size())) != 0)
        return systemError(path, errno);
    return Done{};
}

} // namespace

std::optional<fs::path> PosixFiles::documentsFolder() const {
    if (!absoluteFolder("HOME"))
        return std::nullopt;
    return fs::path(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString());
}

std::optional<fs::path> PosixFiles::applicationSupportFolder() const {
    return folderNamed("XDG_DATA_HOME", ".local/share");
}

std::optional<fs::path> PosixFiles::stateFolder() const {
    const auto state = folderNamed("XDG_STATE_HOME", ".local/state");
    return state ? std::optional(*state / "brisklog") : std::nullopt;
}

std::optional<fs::path> PosixFiles::configurationFolder() {
    const auto configuration = folderNamed("XDG_CONFIG_HOME", ".config");
    return configuration ? std::optional(*configuration / "brisklog") : std::nullopt;
}

bool PosixFiles::exists(const fs::path& path) const {
    struct stat status {};

    return ::stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

Result<std::string> PosixFiles::read(const fs::path& path) const {
    // Not blocking, so that a pipe in the file's place cannot hang the program.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));

    struct stat status {};

    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return systemError(path, errno);
    if (!S_ISREG(status.st_mode))
        return systemError(path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = ::read(file.number(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError(path, errno);
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

std::optional<Date> PosixFiles::modificationDate(const fs::path& path) const {
    struct stat status {};

    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    const auto seconds =
        static_cast<double>(status.st_mtim.tv_sec) + static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
    return Date{seconds - secondsFromUnixEpochToReference};
}

Result<Done> PosixFiles::replace(const fs::path& path, std::string_view bytes, Durability durability) {
    if (const auto folder = createFolder(path.parent_path()); folder.failed())
        return folder;
    const Descriptor file = openForOverwriting(path, fileMode);
    if (auto overwritten = overwrite(file, bytes, path); overwritten.failed())
        return overwritten;
    if (durability == Durability::throughToMedium && ::fdatasync(file.number()) != 0 && errno != EINVAL)
        return systemError(path, errno);
    return Done{};
}

Result<Done> PosixFiles::writeDocument(const fs::path& path, std::string_view bytes) {
    return overwrite(openForOverwriting(path, documentMode), bytes, path);
}

Result<Done> PosixFiles::createFolder(const fs::path& path) {
    if (path.empty() || ::mkdir(path.c_str(), folderMode) == 0)
        return Done{};
    if (errno == ENOENT) {
        if (const auto parent = createFolder(path.parent_path()); parent.failed())
            return parent;
        if (::mkdir(path.c_str(), folderMode) == 0)
            return Done{};
    }

    struct stat status {};

    if (errno == EEXIST && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return Done{};
    return systemError(path, errno == EEXIST ? ENOTDIR : errno);
}

Result<Done> PosixFiles::remove(const fs::path& path) {
    return ::unlink(path.c_str()) == 0 ? Result<Done>(Done{}) : systemError(path, errno);
}

} // namespace brisklog
