#include "autotrack/UsageHistoryStorage.h"

namespace brisklog {
namespace {

constexpr const char* dataKey = "autoTrackingData";

class OnePart final : public DataParts {
public:
    explicit OnePart(std::string_view bytes) : m_bytes(bytes) {}

    std::optional<DataPart> next() override {
        if (!m_bytes)
            return std::nullopt;
        return DataPart{*std::exchange(m_bytes, std::nullopt), nullptr};
    }

private:
    std::optional<std::string_view> m_bytes;
};

} // namespace

Result<std::vector<DailyAppUsage>> UsageHistoryStorage::load() {
    const auto value = m_userDefaults.value(dataKey);
    if (!value)
        return std::vector<DailyAppUsage>();
    const auto* const data = std::get_if<Data>(&*value);
    if (data == nullptr)
        return Error{"the stored value is no data"};
    OnePart parts(data->bytes);
    return json::decode<std::vector<DailyAppUsage>>(parts, m_icons);
}

void UsageHistoryStorage::noteSessionAppended(std::size_t /*day*/) {}

void UsageHistoryStorage::noteChangeFrom(std::size_t /*day*/) {}

Result<Done> UsageHistoryStorage::save(const std::vector<DailyAppUsage>& days) {
    const auto encoded = json::encode(days, json::Layout::compact);
    if (encoded.failed())
        return encoded.error();
    m_userDefaults.setValue(dataKey, Data{std::string(encoded.value().bytes())});
    return Done{};
}

} // namespace brisklog
