#include "platform/pictures/ImageBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisklog {
namespace {

class FileBytes final : public ImageBytes {
public:
    FileBytes(int file, qint64 size) : m_file(file), m_size(size) {}

    ~FileBytes() override { ::close(m_file); }

    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    [[nodiscard]] qint64 size() const override { return m_size; }

protected:
    qint64 readAt(qint64 offset, char* target, qint64 count) override {
        ssize_t filled = 0;
        do
            filled = ::pread(m_file, target, static_cast<std::size_t>(count), offset);
        while (filled < 0 && errno == EINTR);
        return filled;
    }

private:
    int m_file;
    qint64 m_size;
};

class MemoryBytes final : public ImageBytes {
public:
    explicit MemoryBytes(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] qint64 size() const override { return static_cast<qint64>(m_bytes.size()); }

protected:
    qint64 readAt(qint64 offset, char* target, qint64 count) override {
        const qint64 there = std::clamp(size() - offset, qint64{0}, count);
        if (there > 0)
            std::memcpy(target, m_bytes.data() + offset, static_cast<std::size_t>(there));
        return there;
    }

private:
    std::string_view m_bytes;
};

Error systemError(const std::filesystem::path& path, int code) {
    return Error{path.string() + ": " + std::strerror(code)};
}

} // namespace

Result<std::unique_ptr<ImageBytes>> ImageBytes::ofFile(const std::filesystem::path& path) {
    // Non-blocking, so that a pipe with an image's name cannot hang the program.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return systemError(path, errno);

    struct stat status {};

    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode))
        return std::unique_ptr<ImageBytes>(std::make_unique<FileBytes>(file, status.st_size));
    ::close(file);
    return Error{path.string() + ": not a regular file"};
}

std::unique_ptr<ImageBytes> ImageBytes::inMemory(std::string_view bytes) {
    return std::make_unique<MemoryBytes>(bytes);
}

void ImageBytes::startOver() {
    seek(0);
    m_readPastEnd = false;
    m_hadShortRead = false;
}

qint64 ImageBytes::readData(char* target, qint64 count) {
    const qint64 filled = readAt(pos(), target, count);
    m_readPastEnd |= count > 0 && filled <= 0;
    m_hadShortRead |= filled < count;
    return filled;
}

} // namespace brisklog
