#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace brisklog::test {

/// User defaults in memory, enumerated in the order of their keys, with a record of what was done.
class MemoryUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<Value> value(std::string_view key) const override {
        const auto found = m_values.find(key);
        return found == m_values.end() ? std::nullopt : std::optional(found->second);
    }

    void setValue(std::string_view key, const Value& value) override {
        m_values.insert_or_assign(std::string(key), value);
    }

    void removeValue(std::string_view key) override {
        const auto found = m_values.find(key);
        if (found == m_values.end())
            return;
        removed.emplace_back(key);
        m_values.erase(found);
    }

    [[nodiscard]] std::vector<Entry> entries() const override {
        std::vector<Entry> all;
        for (const auto& [key, value] : m_values)
            all.push_back({key, static_cast<Type>(value.index()), sizeOf(value)});
        return all;
    }

    bool replaceTail(std::string_view key, std::size_t offset, std::string_view tail) override {
        const auto found = m_values.find(key);
        if (found == m_values.end())
            return false;
        auto* const data = std::get_if<Data>(&found->second);
        if (data == nullptr || data->bytes.size() < offset)
            return false;
        data->bytes.replace(offset, std::string::npos, tail);
        tailsReplaced.push_back({std::string(key), tail.size()});
        return true;
    }

    void synchronise() override { ++synchronisations; }

    [[nodiscard]] bool holds(std::string_view key) const { return m_values.contains(key); }

    /// Keys removed, in order; tries to remove what was not there do not count.
    std::vector<std::string> removed;
    /// Key and length of every tail replaced, in order.
    std::vector<std::pair<std::string, std::size_t>> tailsReplaced;
    int synchronisations = 0;

private:
    static std::size_t sizeOf(const Value& value) {
        if (const auto* const text = std::get_if<std::string>(&value))
            return text->size();
        const auto* const data = std::get_if<Data>(&value);
        return data != nullptr ? data->bytes.size() : 0;
    }

    std::map<std::string, Value, std::less<>> m_values;
};

} // namespace brisklog::test
