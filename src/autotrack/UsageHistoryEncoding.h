#pragma once

#include "autotrack/DailyAppUsage.h"
#include "platform/LargeValueStore.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// The position of a day in the encoded history.
struct EncodedDay {
    std::size_t sessionCount = 0;
    /// Position of the byte after its last session, where further sessions are added.
    std::size_t end = 0;
};

/// The first days of an encoded history, the last of which may have gained sessions since.
using EncodedDays = std::vector<EncodedDay>;

/// The size of an encoded history of these days only.
[[nodiscard]] std::size_t encodedSize(const EncodedDays& days);

/// The encoding of all days from where it differs from an earlier one: appended to what is kept of that, it
/// gives the result of `json::encode`. It is produced session by session and never held in memory as a whole.
class UsageHistoryEncoding final : public DataSource {
public:
    /// The days must stay as they are for as long as they are being encoded.
    explicit UsageHistoryEncoding(const std::vector<DailyAppUsage>& days, EncodedDays kept = {});

    /// Position of its first byte in the whole encoding; everything before that stays as it is.
    [[nodiscard]] std::size_t start() const { return m_kept.empty() ? 0 : m_kept.back().end; }

    void rewind() override;
    [[nodiscard]] std::optional<DataPart> next() override;

    [[nodiscard]] bool failed() const override { return m_error.has_value(); }

    /// What has no JSON form; only after `failed()`.
    [[nodiscard]] Error error() const { return m_error.value(); }

    /// The positions of all days, once all parts have been returned.
    [[nodiscard]] const EncodedDays& encodedDays() const { return m_encoded; }

private:
    [[nodiscard]] bool isSessionLeft() const;
    [[nodiscard]] std::optional<DataPart> nextSession();
    [[nodiscard]] std::optional<DataPart> nextDay();
    [[nodiscard]] DataPart part(std::string_view bytes);
    [[nodiscard]] std::optional<DataPart> fail(std::size_t day, const std::string& description);

    const std::vector<DailyAppUsage>& m_days;
    EncodedDays m_kept;
    /// The days that have been returned so far.
    EncodedDays m_encoded;
    std::size_t m_position = 0;
    /// Whether everything before the next session has been returned.
    bool m_isAtSession = false;
    bool m_isAtEnd = false;
    std::optional<Error> m_error;
    json::Encoder m_encoder{json::Layout::compact};
    std::string m_beginning;
};

} // namespace brisklog
