#pragma once

#include "foundation/DataParts.h"
#include "platform/UserDefaults.h"

#include <functional>

namespace brisklog {

/// Bytes to be stored, supplied in parts because there may be many.
class DataSource : public DataParts {
public:
    /// Makes the first part the next one again.
    virtual void rewind() = 0;

    /// Whether a part could not be supplied. Then no more follow, and none may be stored.
    [[nodiscard]] virtual bool failed() const = 0;
};

/// Bytes to be stored that are already in memory.
class InMemoryData final : public DataSource {
public:
    explicit InMemoryData(std::string_view bytes) : m_bytes(bytes) {}

    void rewind() override { m_isGiven = false; }

    [[nodiscard]] std::optional<DataPart> next() override {
        if (m_isGiven)
            return std::nullopt;
        m_isGiven = true;
        return DataPart{m_bytes, nullptr};
    }

    [[nodiscard]] bool failed() const override { return false; }

private:
    std::string_view m_bytes;
    bool m_isGiven = false;
};

/// User defaults that can hold data values too large to be held in memory as a whole: hundreds of megabytes,
/// read in parts and rewritten from a given position on. Through `UserDefaults` it is a value like any other.
class LargeValueStore : public UserDefaults {
public:
    /// How reading a data value in parts ended.
    enum class Reading {
        absent,    ///< there is no value
        complete,  ///< `read` got everything it asked for
        otherType, ///< the value is not data
        failed,    ///< it exists but cannot be read, at least not now
    };

    /// How many bytes the data value under the key has. Absent when there is none or one of another type, or
    /// when the size cannot be determined.
    [[nodiscard]] virtual std::optional<std::size_t> dataSize(std::string_view key) const = 0;

    /// Hands the parts of the data value under the key to `read`, which may stop at any of them and must
    /// leave the store alone meanwhile. Unless the result is `complete`, anything passed to `read` is void.
    [[nodiscard]] virtual Reading readData(std::string_view key,
                                           const std::function<void(DataParts&)>& read) const = 0;

    /// Replaces everything from byte `from` on of the data value under the key; the cost is that of the new
    /// bytes, not of the value. If `from` is 0, a value of any type is replaced or a new one created. If it
    /// is greater, there must be a data value of at least that length. False, changing nothing, when there is
    /// none, or on failure.
    virtual bool replaceData(std::string_view key, std::size_t from, DataSource& data) = 0;

    /// Moves the value to another key, at no cost whatever its size; false when there is none, when the other
    /// key has one, or on failure.
    virtual bool renameValue(std::string_view key, std::string_view newKey) = 0;
};

} // namespace brisklog
