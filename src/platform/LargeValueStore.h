#pragma once

#include "foundation/DataParts.h"
#include "platform/UserDefaults.h"

#include <functional>

namespace brisklog {

/// Bytes to be stored, given part by part because they may be many.
class DataSource : public DataParts {
public:
    /// The next part is the first one again.
    virtual void rewind() = 0;

    /// Whether a part could not be given. Then no more are, and none of them is to be stored.
    [[nodiscard]] virtual bool failed() const = 0;
};

/// Bytes to be stored that are at hand.
class DataAtHand final : public DataSource {
public:
    explicit DataAtHand(std::string_view bytes) : m_bytes(bytes) {}

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

/// User defaults for who keeps a data value in them that is too large ever to be whole in memory: hundreds of
/// megabytes, read part by part and written from a position on. It is a value like any other for who asks
/// for it as one.
class LargeValueStore : public UserDefaults {
public:
    /// How reading a data value in parts ended.
    enum class Reading {
        absent,    ///< there is no value
        complete,  ///< what was asked for was given
        otherType, ///< the value is no data
        failed,    ///< it is there but cannot be read, at least not now
    };

    /// How many bytes the data value under the key has. Absent when there is none or one of another type, and
    /// when that cannot be told.
    [[nodiscard]] virtual std::optional<std::size_t> dataSize(std::string_view key) const = 0;

    /// Hands the parts of the data value under the key to `read`, which may stop at any of them and must
    /// leave the store alone meanwhile. Unless the answer is `complete`, what `read` was given, if anything,
    /// does not count.
    [[nodiscard]] virtual Reading readData(std::string_view key,
                                           const std::function<void(DataParts&)>& read) const = 0;

    /// Replaces everything from byte `from` on of the data value under the key; the cost is that of the new
    /// bytes, not of the value. From 0 on a value of whatever type is replaced, or the value is made. False
    /// when the value is no data or shorter than `from` and when it failed; nothing changes then.
    virtual bool replaceData(std::string_view key, std::size_t from, DataSource& data) = 0;

    /// Puts the value under another key, whatever its size, at the cost of nothing; false when there is none
    /// or the other key has one, and when it failed.
    virtual bool renameValue(std::string_view key, std::string_view newKey) = 0;
};

} // namespace brisklog
