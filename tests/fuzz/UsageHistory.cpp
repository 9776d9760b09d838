// The tracker's history: read whole, read in parts, continued and replaced.

#include "RoundTrip.h"

#include "autotrack/UsageHistoryEncoding.h"
#include "autotrack/UsageHistoryStorage.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"

#include <algorithm>
#include <cctype>

namespace brisklog::fuzz {
namespace {

using Days = std::vector<DailyAppUsage>;

constexpr std::string_view dataKey = "autoTrackingData";

class ListedParts final : public DataParts {
public:
    void add(std::string_view bytes) { m_parts.push_back({bytes, nullptr}); }

    void addObject(std::string_view bytes) {
        m_parts.push_back({{}, std::make_shared<const std::string>(bytes)});
    }

    std::optional<DataPart> next() override {
        if (m_position == m_parts.size())
            return std::nullopt;
        DataPart part = m_parts[m_position++];
        // A separate copy, so that the sanitizer notices reads past the part's end.
        m_current.assign(part.bytes.begin(), part.bytes.end());
        part.bytes = part.repeated ? *part.repeated : std::string_view(m_current.data(), m_current.size());
        return part;
    }

private:
    std::vector<DataPart> m_parts;
    std::size_t m_position = 0;
    std::vector<char> m_current;
};

ListedParts cutEvery(std::size_t length, std::string_view bytes) {
    ListedParts parts;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(length, bytes.size())))
        parts.add(bytes.substr(0, length));
    return parts;
}

bool isDigit(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '+' || character == '/';
}

/// Makes long stretches of digits separate objects, as the database keeps them.
ListedParts cutAsStored(std::string_view bytes) {
    constexpr std::ptrdiff_t shortestObject = 4;
    ListedParts parts;
    while (!bytes.empty()) {
        const bool areDigits = isDigit(bytes.front());
        const auto* const end = std::ranges::find(bytes, !areDigits, isDigit);
        const auto stretch = bytes.substr(0, static_cast<std::size_t>(end - bytes.begin()));
        if (areDigits && std::ssize(stretch) >= shortestObject)
            parts.addObject(stretch);
        else
            parts.add(stretch);
        bytes.remove_prefix(stretch.size());
    }
    return parts;
}

Result<Days> decodedInParts(ListedParts parts) {
    SharedDataPool pool;
    return json::decode<Days>(parts, pool);
}

void requireSameValue(const Result<Days>& whole, const Result<Days>& inParts) {
    require(inParts.succeeded() == whole.succeeded(), "decoding in parts and as a whole succeeds alike");
    if (whole.succeeded())
        require(inParts.value() == whole.value(), "decoding in parts gives the same value");
}

void requireSameForEveryPartSize(std::string_view bytes) {
    const auto whole = json::decode<Days>(bytes);
    // An object where no text may be is an error too, but reported at the position after it.
    requireSameValue(whole, decodedInParts(cutAsStored(bytes)));
    for (const std::size_t length : {1U, 7U, 64U}) {
        const auto inParts = decodedInParts(cutEvery(length, bytes));
        requireSameValue(whole, inParts);
        if (whole.failed())
            require(inParts.error() == whole.error(), "decoding in parts gives the same error");
    }
}

std::string compact(const Days& days) {
    const auto encoded = json::encode(days, json::Layout::compact);
    require(encoded.succeeded(), "a history can be encoded");
    return std::string(encoded.value().bytes());
}

void requireSameStreamed(const Days& days) {
    UsageHistoryEncoding encoding(days);
    std::string bytes;
    while (const auto part = encoding.next())
        bytes += part->bytes;
    require(!encoding.failed(), "a history can be encoded as a stream");
    require(bytes == compact(days), "the streamed encoding is the same");
}

/// Loads the stored bytes and closes a session, as the tracker does.
void continueHistory(std::string_view bytes) {
    test::MemoryUserDefaults defaults;
    const test::FakeClock clock;
    SharedDataPool icons;
    defaults.setValue(dataKey, Data{std::string(bytes)});
    UsageHistoryStorage storage(defaults, clock, icons);
    const auto loaded = storage.load();
    Days days = loaded.succeeded() ? loaded.value() : Days();
    if (days.empty())
        days.push_back({.id = {}, .date = clock.now(), .sessions = {}});
    days.back().sessions.push_back({.id = {},
                                    .appName = "Editor",
                                    .bundleIdentifier = "editor",
                                    .startTime = clock.now(),
                                    .endTime = {},
                                    .iconData = {}});
    require(storage.save(days, days.size()).succeeded(), "a history can be continued");
    require(dataValue(defaults, dataKey) == compact(days), "a continued history is the encoding of all days");
    const bool isAside = std::ranges::any_of(defaults.entries(), [&](const auto& entry) {
        return entry.key != dataKey && dataValue(defaults, entry.key) == bytes;
    });
    require(isAside == loaded.failed(), "what cannot be read is kept aside");
}

} // namespace

void tryInput(std::string_view bytes) {
    requireSameForEveryPartSize(bytes);
    if (const auto days = roundTripped<Days>(bytes, json::Layout::compact))
        requireSameStreamed(*days);
    continueHistory(bytes);
}

} // namespace brisklog::fuzz
