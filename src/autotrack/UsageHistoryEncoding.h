#pragma once

#include "autotrack/DailyAppUsage.h"
#include "foundation/DataParts.h"
#include "foundation/Result.h"

#include <cstddef>
#include <vector>

namespace brisklog {

/// Where a day lies in the encoded history.
struct EncodedDay {
    std::size_t sessionCount = 0;
    /// Position of the byte after its last session, from which on it grows.
    std::size_t end = 0;

    bool operator==(const EncodedDay&) const = default;
};

/// The first days of an encoded history, the last of which may have fewer sessions there than it has by now.
using EncodedDays = std::vector<EncodedDay>;

/// The position up to which the encoding of these days stays as it is.
[[nodiscard]] std::size_t keptLength(const EncodedDays& kept);

/// Writes the encoding of all days without its first `keptLength(kept)` bytes: together with them it is what
/// `json::encode` gives, without ever being whole in memory. Gives where all days lie then; an error when
/// something has no JSON form.
Result<EncodedDays> encodeHistory(const std::vector<DailyAppUsage>& days, EncodedDays kept, DataSink& sink);

} // namespace brisklog
