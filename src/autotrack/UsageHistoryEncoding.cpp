#include "autotrack/UsageHistoryEncoding.h"

#include <utility>

namespace brisklog {
namespace {

/// How the encoding of a day without sessions ends.
constexpr std::string_view dayEnd = "]}";

std::string step(std::size_t index) { return "[" + std::to_string(index) + "]"; }

} // namespace

std::size_t encodedSize(const EncodedDays& days) {
    return days.empty() ? std::string_view("[]").size() : days.back().end + std::string_view("]}]").size();
}

UsageHistoryEncoding::UsageHistoryEncoding(const std::vector<DailyAppUsage>& days, EncodedDays kept)
    : m_days(days), m_kept(std::move(kept)) {
    rewind();
}

void UsageHistoryEncoding::rewind() {
    m_encoded = m_kept;
    m_position = start();
    m_isAtSession = isSessionLeft() && m_encoded.back().sessionCount == 0;
    m_isAtEnd = false;
    m_error.reset();
}

std::optional<DataPart> UsageHistoryEncoding::next() {
    if (m_isAtEnd || m_error)
        return std::nullopt;
    if (m_isAtSession)
        return nextSession();
    if (isSessionLeft()) {
        m_isAtSession = true;
        return part(",");
    }
    if (m_encoded.size() < m_days.size())
        return nextDay();
    m_isAtEnd = true;
    return part(m_encoded.empty() ? "[]" : "]}]");
}

/// Whether the last day begun has sessions that have not been returned yet.
bool UsageHistoryEncoding::isSessionLeft() const {
    return !m_encoded.empty() && m_encoded.back().sessionCount < m_days[m_encoded.size() - 1].sessions.size();
}

std::optional<DataPart> UsageHistoryEncoding::nextSession() {
    EncodedDay& day = m_encoded.back();
    const std::size_t index = m_encoded.size() - 1;
    const auto encoded = json::encode(m_days[index].sessions[day.sessionCount], m_encoder);
    if (encoded.failed())
        return fail(index, "sessions" + step(day.sessionCount) + "." + encoded.error().description);
    const DataPart session = part(encoded.value());
    day = {.sessionCount = day.sessionCount + 1, .end = m_position};
    m_isAtSession = false;
    return session;
}

/// The end of the previous day and the beginning of the next one, up to its first session.
std::optional<DataPart> UsageHistoryEncoding::nextDay() {
    const DailyAppUsage& day = m_days[m_encoded.size()];
    const auto encoded =
        json::encode(DailyAppUsage{.id = day.id, .date = day.date, .sessions = {}}, m_encoder);
    if (encoded.failed())
        return fail(m_encoded.size(), encoded.error().description);
    m_beginning = m_encoded.empty() ? "[" : "]},";
    m_beginning += encoded.value();
    m_beginning.resize(m_beginning.size() - dayEnd.size());
    const DataPart beginning = part(m_beginning);
    m_encoded.push_back({.sessionCount = 0, .end = m_position});
    m_isAtSession = !day.sessions.empty();
    return beginning;
}

DataPart UsageHistoryEncoding::part(std::string_view bytes) {
    m_position += bytes.size();
    return {bytes, nullptr};
}

std::optional<DataPart> UsageHistoryEncoding::fail(std::size_t day, const std::string& description) {
    m_error = Error{step(day) + "." + description};
    return std::nullopt;
}

} // namespace brisklog
