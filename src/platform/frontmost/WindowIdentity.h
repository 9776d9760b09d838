#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// What a desktop reports about the program behind a window.
struct WindowIdentity {
    /// The names it gives itself, the most reliable first: application id, class, instance. None of them is
    /// empty.
    std::vector<std::string> names;
    /// The name to use if it has no desktop entry: its class or application id; may be empty.
    std::string windowClass;
    /// The program file's name; empty when unknown.
    std::string program;

    bool operator==(const WindowIdentity&) const = default;
};

/// A name that a program gave its window, made safe to show and store: well-formed, on one line, and limited
/// in length.
[[nodiscard]] std::string windowName(std::string_view bytes);

} // namespace brisklog
