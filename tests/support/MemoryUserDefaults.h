#pragma once

#include "platform/LargeValueStore.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace brisklog::test {

/// User defaults in memory, enumerated in the order of their keys, with a record of what was done.
class MemoryUserDefaults final : public LargeValueStore {
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

    [[nodiscard]] std::optional<std::size_t> dataSize(std::string_view key) const override {
        const auto found = m_values.find(key);
        const bool isData = found != m_values.end() && std::holds_alternative<Data>(found->second);
        return isData ? std::optional(sizeOf(found->second)) : std::nullopt;
    }

    [[nodiscard]] Reading readData(std::string_view key,
                                   const std::function<void(DataParts&)>& read) const override {
        const auto found = m_values.find(key);
        if (found == m_values.end())
            return Reading::absent;
        const auto* const data = std::get_if<Data>(&found->second);
        if (data == nullptr)
            return Reading::otherType;
        InMemoryData parts(data->bytes);
        read(parts);
        return Reading::complete;
    }

    bool replaceData(std::string_view key, std::size_t from, DataSource& data) override {
        if (from > 0 && dataSize(key).value_or(0) < from)
            return false;
        std::string bytes;
        data.rewind();
        while (const auto part = data.next())
            bytes += part->bytes;
        if (data.failed() || writesFail)
            return false;
        if (from > 0) {
            tailsReplaced.push_back({std::string(key), bytes.size()});
            bytes.insert(0, std::get<Data>(m_values.find(key)->second).bytes, 0, from);
        }
        m_values.insert_or_assign(std::string(key), Data{std::move(bytes)});
        return true;
    }

    bool renameValue(std::string_view key, std::string_view newKey) override {
        auto node = m_values.extract(std::string(key));
        if (node.empty() || holds(newKey)) {
            m_values.insert(std::move(node));
            return false;
        }
        node.key() = newKey;
        m_values.insert(std::move(node));
        return true;
    }

    void synchronise() override { ++synchronisations; }

    [[nodiscard]] bool holds(std::string_view key) const { return m_values.contains(key); }

    /// Keys removed, in order; attempts to remove missing ones do not count.
    std::vector<std::string> removed;
    /// Key and length of every tail replaced, in order.
    std::vector<std::pair<std::string, std::size_t>> tailsReplaced;
    int synchronisations = 0;
    /// Makes writing data values fail, as on a full disk.
    bool writesFail = false;

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
