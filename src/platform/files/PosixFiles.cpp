#include "platform/files/PosixFiles.h"

#include "platform/files/UnbreakableWrite.h"

#include <QStandardPaths>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

constexpr mode_t fileMode = 0600;
/// Before the user's umask is applied.
constexpr mode_t documentMode = 0666;
constexpr mode_t folderMode = 0700;

/// Anything larger is not one of our files and would only fill the memory.
constexpr off_t largestFile = off_t{1} << 30;

Error systemError(const fs::path& path, int code) {
    return Error{path.string() + ": " + std::strerror(code)};
}

/// An open file, closed on destruction.
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

/// The folder named by an environment variable, otherwise one inside the user's home.
std::optional<fs::path> folderNamed(const char* variable, const char* insideHome) {
    if (auto named = absoluteFolder(variable))
        return named;
    const auto home = absoluteFolder("HOME");
    return home ? std::optional(*home / insideHome) : std::nullopt;
}

/// Allocates space for `length` bytes without changing the file's content; returns 0 or the error number. The
/// file keeps its size, so that a process killed right afterwards leaves no zeros after the old content.
int allocate(const Descriptor& file, off_t length) {
    int result = 0;
    do
        result = ::fallocate(file.number(), FALLOC_FL_KEEP_SIZE, 0, length);
    while (result != 0 && errno == EINTR);
    if (result == 0)
        return 0;
    // On file systems that cannot reserve space, this allocates it by writing.
    return errno == EOPNOTSUPP || errno == ENOSYS ? ::posix_fallocate(file.number(), 0, length) : errno;
}

/// Reserving space ignores the process's own size limit, and a write that stops there would corrupt the file.
bool exceedsSizeLimit(std::size_t length) {
    struct rlimit limit {};

    return ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
           length > limit.rlim_cur;
}

/// Makes sure there is room for the whole new content before a byte of the old one is touched.
Result<Done> reserve(const Descriptor& file, std::size_t length, const fs::path& path) {
    if (length == 0)
        return Done{};
    if (exceedsSizeLimit(length))
        return systemError(path, EFBIG);

    struct stat before {};

    if (::fstat(file.number(), &before) != 0)
        return systemError(path, errno);
    const int code = allocate(file, static_cast<off_t>(length));
    if (code == 0 || code == EOPNOTSUPP || code == EINVAL)
        return Done{};
    // A reservation that ran out of space half-way may have grown the file: shrink it again.
    if (::ftruncate(file.number(), before.st_size) != 0)
        return systemError(path, errno);
    return systemError(path, code);
}

Result<Done> checkRegular(const Descriptor& file, const fs::path& path) {
    struct stat status {};

    if (::fstat(file.number(), &status) != 0)
        return systemError(path, errno);
    if (S_ISDIR(status.st_mode))
        return systemError(path, EISDIR);
    if (!S_ISREG(status.st_mode))
        return Error{path.string() + ": not a regular file"};
    return Done{};
}

/// Whether nothing has this name, not even a dangling link.
bool isFree(const fs::path& path) {
    struct stat status {};

    return ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

Result<Done> writeContent(const Descriptor& file, std::string_view bytes, const fs::path& path,
                          Durability durability) {
    if (const int code = writeUnbreakably(file.number(), bytes); code != 0)
        return systemError(path, code);
    // Some network file systems do not support syncing and report EINVAL.
    if (durability == Durability::throughToMedium && ::fdatasync(file.number()) != 0 && errno != EINVAL)
        return systemError(path, errno);
    return Done{};
}

Result<std::string> readAll(const Descriptor& file, std::size_t size, const fs::path& path) {
    std::string bytes(size, '\0');
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

/// Replaces the file's content, or creates it with these permissions.
Result<Done> overwrite(const fs::path& path, std::string_view bytes, mode_t mode, Durability durability) {
    const bool isNew = isFree(path);
    // Opened without truncating: until space is reserved, the old content stays intact.
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, mode));
    if (!file.isOpen())
        return systemError(path, errno);
    if (auto regular = checkRegular(file, path); regular.failed())
        return regular;
    if (auto reserved = reserve(file, bytes.size(), path); reserved.failed()) {
        // An empty file would later be read as a damaged one.
        if (isNew)
            ::unlink(path.c_str());
        return reserved;
    }
    return writeContent(file, bytes, path, durability);
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// Most file systems report an entry's type; links and unknown types need another look-up.
bool isFolder(const fs::path& parent, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK)
        return entry.d_type == DT_DIR;
    std::error_code unreadable;
    return fs::is_directory(parent / entry.d_name, unreadable);
}

} // namespace

std::optional<fs::path> PosixFiles::documentsFolder() const {
    if (!absoluteFolder("HOME"))
        return std::nullopt;
    return fs::path(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString());
}

std::optional<fs::path> PosixFiles::picturesFolder() const {
    const auto home = homeFolder();
    if (!home)
        return std::nullopt;
    const fs::path pictures =
        QStandardPaths::writableLocation(QStandardPaths::PicturesLocation).toStdString();
    // How the desktop indicates that there is none.
    return pictures.lexically_relative(*home) == "." ? std::nullopt : std::optional(pictures);
}

std::optional<fs::path> PosixFiles::homeFolder() const { return absoluteFolder("HOME"); }

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
    // Non-blocking, so that a pipe in the file's place cannot hang the program.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        return systemError(path, errno);
    if (const auto regular = checkRegular(file, path); regular.failed())
        return regular.error();

    struct stat status {};

    if (::fstat(file.number(), &status) != 0)
        return systemError(path, errno);
    if (status.st_size > largestFile)
        return systemError(path, EFBIG);
    return readAll(file, static_cast<std::size_t>(status.st_size), path);
}

std::optional<Date> PosixFiles::modificationDate(const fs::path& path) const {
    struct stat status {};

    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    const auto seconds =
        static_cast<double>(status.st_mtim.tv_sec) + static_cast<double>(status.st_mtim.tv_nsec) / 1e9;
    return Date::fromSecondsSince1970(seconds);
}

Result<Done> PosixFiles::replace(const fs::path& path, std::string_view bytes, Durability durability) {
    if (auto folder = createFolder(path.parent_path()); folder.failed())
        return folder;
    return overwrite(path, bytes, fileMode, durability);
}

Result<Done> PosixFiles::writeDocument(const fs::path& path, std::string_view bytes) {
    return overwrite(path, bytes, documentMode, Durability::leftToSystem);
}

Result<Done> PosixFiles::createFolder(const fs::path& path) {
    if (path.empty() || ::mkdir(path.c_str(), folderMode) == 0)
        return Done{};
    if (errno == ENOENT) {
        if (auto parent = createFolder(path.parent_path()); parent.failed())
            return parent;
        if (::mkdir(path.c_str(), folderMode) == 0)
            return Done{};
    }

    struct stat status {};

    if (errno == EEXIST && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return Done{};
    return systemError(path, errno == EEXIST ? ENOTDIR : errno);
}

std::vector<std::string> PosixFiles::namesIn(const fs::path& folder) const {
    std::vector<std::string> names;
    std::error_code unreadable;
    for (fs::directory_iterator entry(folder, unreadable), end; !unreadable && entry != end;
         entry.increment(unreadable))
        names.push_back(entry->path().filename());
    return names;
}

Result<std::vector<FolderEntry>> PosixFiles::entriesIn(const fs::path& folder) const {
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    if (open == nullptr)
        return systemError(folder, errno);
    std::vector<FolderEntry> entries;
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(open.get());
        if (entry == nullptr)
            break;
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            entries.push_back({name, isFolder(folder, *entry)});
    }
    return errno == 0 ? Result<std::vector<FolderEntry>>(std::move(entries)) : systemError(folder, errno);
}

Result<Done> PosixFiles::removeFolder(const fs::path& folder) {
    std::error_code failure;
    fs::remove_all(folder, failure);
    return failure ? systemError(folder, failure.value()) : Result<Done>(Done{});
}

Result<Done> PosixFiles::remove(const fs::path& path) {
    return ::unlink(path.c_str()) == 0 ? Result<Done>(Done{}) : systemError(path, errno);
}

} // namespace brisklog
