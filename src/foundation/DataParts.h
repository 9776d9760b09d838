#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brisklog {

/// One part of a byte sequence that is read in parts.
struct DataPart {
    /// Valid until the next part is asked for.
    std::string_view bytes;
    /// The same bytes as an object of the source, if it stores them once for all the places where they occur:
    /// the same object always means the same bytes. Null for all other parts.
    std::shared_ptr<const std::string> repeated;
};

/// A byte sequence that is read in parts because it may be large.
class DataParts {
public:
    virtual ~DataParts() = default;

    /// The next part; absent at the end, however often it is called.
    [[nodiscard]] virtual std::optional<DataPart> next() = 0;
};

} // namespace brisklog
