#pragma once

#include "foundation/Result.h"

#include <QIODevice>
#include <filesystem>
#include <memory>
#include <string_view>

namespace brisklog {

/// An image file as a device for the toolkit's decoders. It is deliberately not one of the toolkit's own
/// devices: decoders map those into memory, where a file that shrinks meanwhile crashes the process. It also
/// records whether a decoder wanted more than there was, which most decoders do not report.
class ImageBytes : public QIODevice {
public:
    /// Opens a file; an error when it cannot be opened or is not a regular file.
    static Result<std::unique_ptr<ImageBytes>> ofFile(const std::filesystem::path& path);
    /// The bytes must outlive the device.
    static std::unique_ptr<ImageBytes> inMemory(std::string_view bytes);

    /// Whether a decoder tried to read beyond the end and got nothing.
    [[nodiscard]] bool readPastEnd() const { return m_readPastEnd; }

    /// Whether a decoder got less than it asked for, as those that read ahead eventually do.
    [[nodiscard]] bool hadShortRead() const { return m_hadShortRead; }

    /// Goes back to the beginning, as if nothing had been read.
    void startOver();

    [[nodiscard]] bool isSequential() const override { return false; }

protected:
    ImageBytes() { QIODevice::open(ReadOnly | Unbuffered); }

    /// Reads as many bytes as there are from that offset on, at most `count`; negative when reading failed.
    virtual qint64 readAt(qint64 offset, char* target, qint64 count) = 0;

    qint64 readData(char* target, qint64 count) override;

    qint64 writeData(const char* /*bytes*/, qint64 /*count*/) override { return -1; }

private:
    bool m_readPastEnd = false;
    bool m_hadShortRead = false;
};

} // namespace brisklog
