#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace brisklog {

/// Immutable bytes shared by any number of holders. They are kept as the Base64 text (standard alphabet,
/// padded, on one line) in which they are saved, so that saving them is a mere copy.
class SharedData {
public:
    /// No bytes at all.
    SharedData();

    [[nodiscard]] static SharedData of(std::string_view bytes);

    /// The bytes that the text encodes; keeps the text itself, not a copy. Absent when it is not Base64.
    [[nodiscard]] static std::optional<SharedData> fromBase64(std::shared_ptr<const std::string> text);

    [[nodiscard]] std::string bytes() const;

    [[nodiscard]] const std::string& base64() const { return *m_text; }

    /// Whether both are not only equal but share the same memory.
    [[nodiscard]] bool sharesBytesWith(const SharedData& other) const { return m_text == other.m_text; }

    /// How many objects share these bytes.
    [[nodiscard]] long holders() const { return m_text.use_count(); }

    bool operator==(const SharedData& other) const {
        return m_text == other.m_text || *m_text == *other.m_text;
    }

private:
    explicit SharedData(std::shared_ptr<const std::string> text) : m_text(std::move(text)) {}

    std::shared_ptr<const std::string> m_text;
};

/// Makes equal bytes share memory: bytes obtained here are shared with all equal ones obtained before.
class SharedDataPool {
public:
    /// The bytes that the text encodes; absent when it is not Base64.
    [[nodiscard]] std::optional<SharedData> fromBase64(std::string_view text);

    /// The same; a text object seen before is recognised by its address, without reading its characters.
    [[nodiscard]] std::optional<SharedData> fromBase64(const std::shared_ptr<const std::string>& text);

    /// These bytes, shared.
    [[nodiscard]] SharedData shared(const SharedData& data);

    /// Drops bytes that are no longer held outside the pool.
    void forgetUnused();

    /// How many different byte sequences it holds.
    [[nodiscard]] std::size_t size() const { return m_byText.size(); }

private:
    static constexpr long holdersWithinPool = 2;

    /// Each key is a view of its value's text.
    std::unordered_map<std::string_view, SharedData> m_byText;
    /// The same data by the address of their text.
    std::unordered_map<const std::string*, SharedData> m_byObject;
};

} // namespace brisklog
