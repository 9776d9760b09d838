#pragma once

#include <cstdint>
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
    /// Its process on this machine; 0 when unknown.
    std::uint32_t process = 0;

    bool operator==(const WindowIdentity&) const = default;
};

/// Tells this program's own windows. Not every desktop reports the process of a window.
struct OwnWindows {
    std::uint32_t process = 0;
    /// The names they go by: desktop entry and class.
    std::vector<std::string> names;

    [[nodiscard]] bool contain(const WindowIdentity& window) const;
};

/// A name that a program gave its window, made safe to show and store: well-formed, on one line, and limited
/// in length.
[[nodiscard]] std::string windowName(std::string_view bytes);

} // namespace brisklog
