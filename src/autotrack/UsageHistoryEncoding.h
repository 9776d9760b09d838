#pragma once

#include "autotrack/DailyAppUsage.h"
#include "platform/LargeValueStore.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// Where a day lies in the encoded history.
struct EncodedDay {
    std::size_t sessionCount = 0;
    /// Position of the byte after its last session, from which on it grows.
    std::size_t end = 0;
};

/// The first days of an encoded history, the last of which may have fewer sessions there than it has by now.
using EncodedDays = std::vector<EncodedDay>;

/// The size of a history that is these days and nothing else.
[[nodiscard]] std::size_t encodedSize(const EncodedDays& days);

/// The encoding of all days from where it differs from an earlier one: together with what is kept of that it
/// is what `json::encode` gives. It comes session by session and is never whole in memory.
class UsageHistoryEncoding final : public DataSource {
public:
    /// The days must stay as they are for as long as they are being encoded.
    explicit UsageHistoryEncoding(const std::vector<DailyAppUsage>& days, EncodedDays kept = {});

    /// Position of its first byte in the whole; what stands before stays as it is.
    [[nodiscard]] std::size_t start() const { return m_kept.empty() ? 0 : m_kept.back().end; }

    void rewind() override;
    [[nodiscard]] std::optional<DataPart> next() override;

    [[nodiscard]] bool failed() const override { return m_error.has_value(); }

    /// What has no JSON form, after `failed()`.
    [[nodiscard]] Error error() const { return m_error.value(); }

    /// Where all days lie, once all parts were given.
    [[nodiscard]] const EncodedDays& encodedDays() const { return m_encoded; }

private:
    [[nodiscard]] bool isSessionLeft() const;
    [[nodiscard]] std::optional<DataPart> nextSession();
    [[nodiscard]] std::optional<DataPart> nextDay();
    [[nodiscard]] DataPart part(std::string_view bytes);
    [[nodiscard]] std::optional<DataPart> fail(std::size_t day, const std::string& description);

    const std::vector<DailyAppUsage>& m_days;
    EncodedDays m_kept;
    /// As far as they were given.
    EncodedDays m_encoded;
    std::size_t m_position = 0;
    /// Whether what stands before the next session was given.
    bool m_isAtSession = false;
    bool m_isAtEnd = false;
    std::optional<Error> m_error;
    json::Encoder m_encoder{json::Layout::compact};
    std::string m_beginning;
};

} // namespace brisklog
