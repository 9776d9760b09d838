#pragma once

#include <cstddef>
#include <cstdint>
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

    virtual ~UserDefaults() = default;

    /// The value under the key; absent when there is none.
    [[nodiscard]] virtual std::optional<Value> value(std::string_view key) const = 0;

    /// Stores the value, replacing one of whatever type.
    virtual void setValue(std::string_view key, const Value& value) = 0;

    /// Removes the value; nothing happens when there is none.
    virtual void removeValue(std::string_view key) = 0;

    /// All keys with type and size, in the store's own order. Costs the same however large the values are.
    [[nodiscard]] virtual std::vector<Entry> entries() const = 0;

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
