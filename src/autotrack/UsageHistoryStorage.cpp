#include "autotrack/UsageHistoryStorage.h"

#include <algorithm>
#include <string>

namespace brisklog {
namespace {

using Days = std::vector<DailyAppUsage>;
using Reading = LargeValueStore::Reading;

constexpr std::string_view dataKey = "autoTrackingData";

/// Where a value that could not be loaded is kept; the time is appended. The name does not match those by
/// which the start-up clean-up recognises oversized strays.
constexpr std::string_view unreadableKey = "autoTrackingUnreadable-";

/// The bytes of the next part that is not empty; empty at the end.
std::string_view nextBytes(DataParts& parts) {
    while (const auto part = parts.next())
        if (!part->bytes.empty())
            return part->bytes;
    return {};
}

/// Whether both have the same bytes, however they are divided into parts.
bool areSame(DataParts& one, DataParts& other) {
    std::string_view bytes;
    std::string_view others;
    while (true) {
        if (bytes.empty())
            bytes = nextBytes(one);
        if (others.empty())
            others = nextBytes(other);
        const auto length = std::min(bytes.size(), others.size());
        if (length == 0 || bytes.substr(0, length) != others.substr(0, length))
            return bytes.empty() && others.empty();
        bytes.remove_prefix(length);
        others.remove_prefix(length);
    }
}

} // namespace

Result<Days> UsageHistoryStorage::load() {
    Result<Days> decoded = Days();
    const auto reading = m_userDefaults.readData(
        dataKey, [&](DataParts& parts) { decoded = json::decode<Days>(parts, m_icons); });
    if (reading == Reading::absent)
        return Days();
    if (reading == Reading::otherType)
        return Error{"the stored value is no data"};
    if (reading == Reading::failed)
        decoded = Error{"the stored value cannot be read"};
    m_isUnreadable = decoded.failed();
    if (decoded.succeeded())
        findOurEncoding(decoded.value());
    return decoded;
}

/// Only a value that is byte for byte our own encoding can be appended to; anything else is replaced as a
/// whole by the first save.
void UsageHistoryStorage::findOurEncoding(const Days& days) {
    UsageHistoryEncoding encoding(days);
    bool isOurs = false;
    const auto reading =
        m_userDefaults.readData(dataKey, [&](DataParts& stored) { isOurs = areSame(stored, encoding); });
    if (reading == Reading::complete && isOurs)
        m_stored = encoding.encodedDays();
}

Result<Done> UsageHistoryStorage::save(const Days& days, std::size_t unchangedDays) {
    if (m_isUnreadable && !setUnreadableAside())
        return Done{};
    // Another program may have written or removed the value or replaced the whole store.
    if (m_userDefaults.dataSize(dataKey) != encodedSize(m_stored))
        m_stored.clear();
    m_stored.resize(std::min(m_stored.size(), unchangedDays));
    UsageHistoryEncoding encoding(days, m_stored);
    const bool isStored = m_userDefaults.replaceData(dataKey, encoding.start(), encoding);
    if (encoding.failed())
        return encoding.error();
    if (isStored)
        m_stored = encoding.encodedDays();
    return Done{};
}

/// False when the value is still stored under our key.
bool UsageHistoryStorage::setUnreadableAside() {
    const auto newKey = std::string(unreadableKey) + std::to_string(millisecondsSince1970(m_clock.now()));
    const bool isAside = m_userDefaults.renameValue(dataKey, newKey) ||
                         m_userDefaults.readData(dataKey, [](DataParts&) {}) == Reading::absent;
    m_isUnreadable = !isAside;
    return isAside;
}

void UsageHistoryStorage::removeUnreadable() {
    for (const auto& entry : m_userDefaults.entries())
        if (entry.key.starts_with(unreadableKey))
            m_userDefaults.removeValue(entry.key);
    m_isUnreadable = false;
}

} // namespace brisklog
