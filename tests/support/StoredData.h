#pragma once

#include "platform/LargeValueStore.h"

#include <utility>
#include <vector>

namespace brisklog::test {

/// Bytes to be stored, in the given parts.
class DataInParts final : public DataSource {
public:
    enum class End { complete, givenUp };

    explicit DataInParts(std::vector<std::string_view> parts, End end = End::complete)
        : m_parts(std::move(parts)), m_end(end) {}

    void rewind() override { m_position = 0; }

    [[nodiscard]] std::optional<DataPart> next() override {
        return isAtEnd() ? std::nullopt : std::optional(DataPart{m_parts[m_position++], nullptr});
    }

    [[nodiscard]] bool failed() const override { return isAtEnd() && m_end == End::givenUp; }

private:
    [[nodiscard]] bool isAtEnd() const { return m_position == m_parts.size(); }

    std::vector<std::string_view> m_parts;
    End m_end;
    std::size_t m_position = 0;
};

/// Replaces everything from that byte on with `tail`.
inline bool replaceTail(LargeValueStore& store, std::string_view key, std::size_t from,
                        std::string_view tail) {
    InMemoryData data(tail);
    return store.replaceData(key, from, data);
}

} // namespace brisklog::test
