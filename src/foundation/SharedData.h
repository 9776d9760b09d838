#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace brisklog {

/// Bytes that do not change and that any number of holders share. They are kept as the Base64 text (standard
/// alphabet, padded, on one line) in which they are saved, so that saving them costs a copy and nothing else.
class SharedData {
public:
    /// No bytes at all.
    SharedData();

    [[nodiscard]] static SharedData of(std::string_view bytes);

    /// The bytes that the text stands for; the text itself is kept, not a copy. Absent when it is no Base64.
    [[nodiscard]] static std::optional<SharedData> fromBase64(std::shared_ptr<const std::string> text);

    [[nodiscard]] std::string bytes() const;

    [[nodiscard]] const std::string& base64() const { return *m_text; }

    /// Whether both are not only equal but the same bytes in memory.
    [[nodiscard]] bool sharesBytesWith(const SharedData& other) const { return m_text == other.m_text; }

    /// How many hold these very bytes.
    [[nodiscard]] long holders() const { return m_text.use_count(); }

    bool operator==(const SharedData& other) const {
        return m_text == other.m_text || *m_text == *other.m_text;
    }

private:
    explicit SharedData(std::shared_ptr<const std::string> text) : m_text(std::move(text)) {}

    std::shared_ptr<const std::string> m_text;
};

/// Sees to it that equal bytes are the same bytes: whoever gets them here shares them with all who got equal
/// ones before.
class SharedDataPool {
public:
    /// What the text stands for; absent when it is no Base64.
    [[nodiscard]] std::optional<SharedData> fromBase64(std::string_view text);

    /// The same; a text object seen before is known without looking at its characters.
    [[nodiscard]] std::optional<SharedData> fromBase64(const std::shared_ptr<const std::string>& text);

    /// These bytes, shared.
    [[nodiscard]] SharedData shared(const SharedData& data);

    /// Lets go of what nobody else holds any more.
    void forgetUnused();

    /// How many different bytes it holds.
    [[nodiscard]] std::size_t size() const { return m_byText.size(); }

private:
    static constexpr long holdersWithinPool = 2;

    /// The views look into the data beside them.
    std::unordered_map<std::string_view, SharedData> m_byText;
    /// The same data.
    std::unordered_map<const std::string*, SharedData> m_byObject;
};

} // namespace brisklog
