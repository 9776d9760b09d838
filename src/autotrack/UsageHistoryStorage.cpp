#include "autotrack/UsageHistoryStorage.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

using Days = std::vector<DailyAppUsage>;
using Reading = UserDefaults::Reading;

constexpr std::string_view dataKey = "autoTrackingData";

/// Where a value that could not be loaded is kept; the moment follows. The name has nothing of those by which
/// the start-up clean-up knows oversized strays.
constexpr std::string_view unreadableKey = "autoTrackingUnreadable-";

/// Finds out whether the bytes it is given are those that are stored.
class ComparingSink final : public DataSink {
public:
    explicit ComparingSink(DataParts& stored) : m_stored(stored) {}

    void append(std::string_view bytes) override {
        while (!bytes.empty() && !m_isDifferent) {
            const auto length = std::min(bytes.size(), advance());
            m_isDifferent = length == 0 || m_part.substr(0, length) != bytes.substr(0, length);
            m_part.remove_prefix(length);
            bytes.remove_prefix(length);
        }
    }

    /// Whether they were, all of them.
    [[nodiscard]] bool isSame() { return !m_isDifferent && advance() == 0; }

private:
    /// How many stored bytes are at hand; 0 at the end.
    std::size_t advance() {
        while (m_part.empty()) {
            const auto next = m_stored.next();
            if (!next)
                return 0;
            m_part = next->bytes;
        }
        return m_part.size();
    }

    DataParts& m_stored;
    std::string_view m_part;
    bool m_isDifferent = false;
};

std::size_t encodedSize(const EncodedDays& encoded) {
    return encoded.empty() ? std::string_view("[]").size()
                           : encoded.back().end + std::string_view("]}]").size();
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

/// Only what is byte for byte our own encoding can be continued; other programs' forms are replaced as a
/// whole by the first save.
void UsageHistoryStorage::findOurEncoding(const Days& days) {
    const auto reading = m_userDefaults.readData(dataKey, [&](DataParts& parts) {
        ComparingSink stored(parts);
        auto encoded = encodeHistory(days, {}, stored);
        const bool isOurs = encoded.succeeded() && stored.isSame();
        m_kept = isOurs ? std::move(encoded).value() : EncodedDays();
        m_storedSize = isOurs ? encodedSize(m_kept) : 0;
    });
    if (reading != Reading::complete)
        m_storedSize = 0;
}

void UsageHistoryStorage::noteSessionAppended(std::size_t day) { noteChangeFrom(day + 1); }

void UsageHistoryStorage::noteChangeFrom(std::size_t day) { m_kept.resize(std::min(m_kept.size(), day)); }

void UsageHistoryStorage::noteCleared() {
    noteChangeFrom(0);
    m_isCleared = true;
}

Result<Done> UsageHistoryStorage::save(const Days& days) {
    if (m_isCleared)
        removeWhatWasSetAside();
    if (m_isUnreadable && !setUnreadableAside())
        return Done{};
    const bool isContinued = isStoredAsLeft();
    Result<EncodedDays> encoded = EncodedDays();
    const auto write = [&](DataSink& sink) {
        encoded = encodeHistory(days, isContinued ? m_kept : EncodedDays(), sink);
        return encoded.succeeded();
    };
    const bool isStored = isContinued ? m_userDefaults.writeTail(dataKey, keptLength(m_kept), write)
                                      : m_userDefaults.writeData(dataKey, write);
    if (encoded.failed())
        return encoded.error();
    if (isStored) {
        m_kept = std::move(encoded).value();
        m_storedSize = encodedSize(m_kept);
    }
    return Done{};
}

/// Somebody else may have written or removed the value, or the whole store was replaced.
bool UsageHistoryStorage::isStoredAsLeft() const {
    const auto entries = m_userDefaults.entries();
    const auto found = std::ranges::find(entries, dataKey, &UserDefaults::Entry::key);
    return m_storedSize > 0 && found != entries.end() && found->type == UserDefaults::Type::data &&
           found->size == m_storedSize;
}

/// False when the value is still in the place of ours.
bool UsageHistoryStorage::setUnreadableAside() {
    const auto newKey = std::string(unreadableKey) + std::to_string(millisecondsSince1970(m_clock.now()));
    const bool isAside = m_userDefaults.renameValue(dataKey, newKey) ||
                         m_userDefaults.readData(dataKey, [](DataParts&) {}) == Reading::absent;
    m_isUnreadable = !isAside;
    return isAside;
}

void UsageHistoryStorage::removeWhatWasSetAside() {
    for (const auto& entry : m_userDefaults.entries())
        if (entry.key.starts_with(unreadableKey))
            m_userDefaults.removeValue(entry.key);
    m_isUnreadable = false;
    m_isCleared = false;
}

} // namespace brisklog
