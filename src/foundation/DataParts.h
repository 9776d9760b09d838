#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brisklog {

/// One stretch of bytes that are read part by part.
struct DataPart {
    /// Valid until the next part is asked for.
    std::string_view bytes;
    /// The same bytes as the keeper's own object, where it keeps them once for all places at which they
    /// stand: equal objects are equal bytes. Null for all other parts.
    std::shared_ptr<const std::string> repeated;
};

/// Bytes that are read part by part, because they may be many.
class DataParts {
public:
    virtual ~DataParts() = default;

    /// The part after the last one; absent at the end, however often it is asked for.
    [[nodiscard]] virtual std::optional<DataPart> next() = 0;
};

} // namespace brisklog
