#pragma once

#include "foundation/DataParts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brisklog {

/// Raw bytes, as opposed to text.
struct Data {
    std::string bytes;

    bool operator==(const Data&) const = default;
};

/// The user-defaults store: small typed values under keys, kept across starts. Failures are printed, never
/// thrown: a value that cannot be read is absent, one that cannot be written is lost.
class UserDefaults {
public:
    using Value = std::variant<std::string, bool, std::int64_t, double, Data>;

    /// What a value is, in the order of `Value`.
    enum class Type { text, truth, integer, number, data };

    /// What is stored under a key, without the value itself.
    struct Entry {
        std::string key;
        Type type;
        /// Bytes of a text or of data; 0 for the others.
        std::size_t size;
    };

    /// Takes a data value part by part.
    using Read = std::function<void(DataParts&)>;

    /// Gives a data value part by part; false when it cannot, and nothing is changed then. It may be called a
    /// second time, to begin anew.
    using Write = std::function<bool(DataSink&)>;

    /// How reading a data value in parts ended.
    enum class Reading {
        complete,  ///< what was asked for was given
        absent,    ///< there is no value
        otherType, ///< the value is no data
        failed,    ///< it is there but cannot be read, at least not now
    };

    virtual ~UserDefaults() = default;

    /// The value under the key; absent when there is none.
    [[nodiscard]] virtual std::optional<Value> value(std::string_view key) const = 0;

    /// Stores the value, replacing one of whatever type.
    virtual void setValue(std::string_view key, const Value& value) = 0;

    /// Removes the value; nothing happens when there is none.
    virtual void removeValue(std::string_view key) = 0;

    /// All keys with type and size, in the store's own order. Costs the same however large the values are.
    [[nodiscard]] virtual std::vector<Entry> entries() const = 0;

    /// Hands the parts of the data value under the key to `read`, which may stop at any of them and must
    /// leave the store alone meanwhile. The value is never whole in memory. Unless the answer is `complete`,
    /// what `read` was given, if anything, does not count.
    [[nodiscard]] virtual Reading readData(std::string_view key, const Read& read) const = 0;

    /// Stores what `write` gives as the data value under the key, replacing a value of whatever type; false
    /// when that failed, and the old value stays.
    virtual bool writeData(std::string_view key, const Write& write) = 0;

    /// Replaces everything from byte `offset` on of the data value under the key by what `write` gives; the
    /// cost is that of the tail, not of the value. False when the value is no data or shorter than `offset`
    /// and when it failed; nothing changes then.
    virtual bool writeTail(std::string_view key, std::size_t offset, const Write& write) = 0;

    /// The same with a tail that is at hand.
    bool replaceTail(std::string_view key, std::size_t offset, std::string_view tail) {
        return writeTail(key, offset, [tail](DataSink& sink) {
            sink.append(tail);
            return true;
        });
    }

    /// Puts the value under another key, whatever its size, at the cost of nothing; false when there is none
    /// or the other key has one, and when it failed.
    virtual bool renameValue(std::string_view key, std::string_view newKey) = 0;

    /// Returns once every change is on the medium.
    virtual void synchronise() = 0;
};

/// The text under the key; absent when there is no value or one of another type.
[[nodiscard]] std::optional<std::string> textValue(const UserDefaults& defaults, std::string_view key);

/// The truth value under the key, reading numbers (0 is false) and the texts "YES", "true" and "1" as the
/// store's former owners wrote them; false for everything else. Absent when there is no value.
[[nodiscard]] std::optional<bool> truthValue(const UserDefaults& defaults, std::string_view key);

/// The number under the key, reading integers, truth values and decimal texts too; 0 for everything else.
/// Absent when there is no value.
[[nodiscard]] std::optional<double> numberValue(const UserDefaults& defaults, std::string_view key);

/// The bytes under the key; absent when there is no value or one of another type.
[[nodiscard]] std::optional<std::string> dataValue(const UserDefaults& defaults, std::string_view key);

} // namespace brisklog
