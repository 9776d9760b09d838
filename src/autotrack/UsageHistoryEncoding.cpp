#include "autotrack/UsageHistoryEncoding.h"

#include <algorithm>
#include <string>
#include <utility>

namespace brisklog {
namespace {

/// Ends a day without sessions.
constexpr std::string_view dayEnd = "]}";

/// Hands on what it is given and knows how far it came.
class Counter {
public:
    Counter(DataSink& sink, std::size_t position) : m_sink(sink), m_position(position) {}

    void append(std::string_view bytes) {
        m_sink.append(bytes);
        m_position += bytes.size();
    }

    [[nodiscard]] std::size_t position() const { return m_position; }

private:
    DataSink& m_sink;
    std::size_t m_position;
};

std::string stepOf(std::size_t day) { return "[" + std::to_string(day) + "]"; }

Result<Done> appendDayBeginning(const DailyAppUsage& day, Counter& out) {
    const auto encoded =
        json::encode(DailyAppUsage{.id = day.id, .date = day.date, .sessions = {}}, json::Layout::compact);
    if (encoded.failed())
        return encoded.error();
    std::string_view beginning = encoded.value().bytes();
    beginning.remove_suffix(dayEnd.size());
    out.append(beginning);
    return Done{};
}

Result<Done> appendSessions(const DailyAppUsage& day, std::size_t from, Counter& out) {
    json::Encoder encoder(json::Layout::compact);
    for (std::size_t i = from; i < day.sessions.size(); ++i) {
        const auto encoded = json::encode(day.sessions[i], encoder);
        if (encoded.failed())
            return Error{"sessions[" + std::to_string(i) + "]." + encoded.error().description};
        if (i > 0)
            out.append(",");
        out.append(encoded.value());
    }
    return Done{};
}

} // namespace

std::size_t keptLength(const EncodedDays& kept) { return kept.empty() ? 0 : kept.back().end; }

Result<EncodedDays> encodeHistory(const std::vector<DailyAppUsage>& days, EncodedDays kept, DataSink& sink) {
    Counter out(sink, keptLength(kept));
    if (kept.empty())
        out.append("[");
    const std::size_t first = std::max<std::size_t>(kept.size(), 1) - 1;
    for (std::size_t i = first; i < days.size(); ++i) {
        if (i > first)
            out.append(",");
        auto appended = Result<Done>(Done{});
        if (i == kept.size()) {
            appended = appendDayBeginning(days[i], out);
            kept.emplace_back();
        }
        if (appended.succeeded())
            appended = appendSessions(days[i], kept[i].sessionCount, out);
        if (appended.failed())
            return Error{stepOf(i) + "." + appended.error().description};
        kept[i] = {.sessionCount = days[i].sessions.size(), .end = out.position()};
        out.append(dayEnd);
    }
    out.append("]");
    return kept;
}

} // namespace brisklog
