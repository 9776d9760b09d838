#pragma once

#include "foundation/Result.h"

#include <QIODevice>
#include <filesystem>
#include <memory>
#include <string_view>

namespace brisklog {

/// An image file as the toolkit's decoders read it. It is deliberately neither of the toolkit's own devices:
/// decoders map those into memory, where a file that shrinks meanwhile ends the process. And it remembers
/// whether a decoder wanted more than there was, which most of them keep to themselves.
class ImageBytes : public QIODevice {
public:
    /// Opens a file; an error when it is none or not a regular one.
    static Result<std::unique_ptr<ImageBytes>> ofFile(const std::filesystem::path& path);
    /// The bytes must outlive the device.
    static std::unique_ptr<ImageBytes> inMemory(std::string_view bytes);

    /// A decoder asked for something behind the end.
    [[nodiscard]] bool ranOut() const { return m_ranOut; }

    /// A decoder got less than it asked for, as those that read ahead do in the end.
    [[nodiscard]] bool cameShort() const { return m_cameShort; }

    /// Goes back to the beginning, as if nothing had been read.
    void startOver();

    [[nodiscard]] bool isSequential() const override { return false; }

protected:
    ImageBytes() { QIODevice::open(ReadOnly | Unbuffered); }

    /// As many bytes as there are from that offset on, at most `count`; negative when reading failed.
    virtual qint64 readAt(qint64 offset, char* target, qint64 count) = 0;

    qint64 readData(char* target, qint64 count) override;

    qint64 writeData(const char* /*bytes*/, qint64 /*count*/) override { return -1; }

private:
    bool m_ranOut = false;
    bool m_cameShort = false;
};

} // namespace brisklog
