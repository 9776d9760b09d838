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

/// The user-defaults store: small typed values under keys, kept across restarts. Failures are printed, never
/// thrown: a value that cannot be read is absent, one that cannot be written is lost.
class UserDefaults {
public:
    using Value = std::variant<std::string, bool, std::int64_t, double, Data>;

    /// The type of a value, in the order of `Value`.
    enum class Type { text, truth, integer, number, data };

    /// What is stored under a key, without the value itself.
    struct Entry {
        std::string key;
        Type type;
        /// The number of bytes of text or data; 0 for the other types.
        std::size_t size;
    };

    virtual ~UserDefaults() = default;

    /// The value under the key; absent when there is none.
    [[nodiscard]] virtual std::optional<Value> value(std::string_view key) const = 0;

    /// Stores the value, replacing one of any type.
    virtual void setValue(std::string_view key, const Value& value) = 0;

    /// Removes the value; does nothing when there is none.
    virtual void removeValue(std::string_view key) = 0;

    /// All keys with type and size, in the store's own order. Takes the same time however large the values
    /// are.
    [[nodiscard]] virtual std::vector<Entry> entries() const = 0;

    /// Returns once every change is on the medium.
    virtual void synchronise() = 0;
};

/// The text under the key; absent when there is no value or one of another type.
[[nodiscard]] std::optional<std::string> textValue(const UserDefaults& defaults, std::string_view key);

/// The truth value under the key, also read from numbers (0 is false) and from the texts "YES", "true" and
/// "1" as earlier programs wrote them; false for everything else. Absent when there is no value.
[[nodiscard]] std::optional<bool> truthValue(const UserDefaults& defaults, std::string_view key);

/// The number under the key, also read from integers, truth values and decimal texts; 0 for everything else.
/// Absent when there is no value.
[[nodiscard]] std::optional<double> numberValue(const UserDefaults& defaults, std::string_view key);

/// The bytes under the key; absent when there is no value or one of another type.
[[nodiscard]] std::optional<std::string> dataValue(const UserDefaults& defaults, std::string_view key);

} // namespace brisklog
