#pragma once

#include <string_view>

namespace brisklog {

/// Where the program reports what went wrong or was cleaned up; the user never has to read it.
class Log {
public:
    virtual ~Log() = default;

    /// One line; line breaks in `line` become spaces, so that it stays one. Never fails.
    virtual void print(std::string_view line) = 0;
};

} // namespace brisklog
