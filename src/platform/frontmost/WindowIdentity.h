#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// What a desktop tells about the program behind a window.
struct WindowIdentity {
    /// The names it gives itself, the surest first: application id, class, instance. Never empty texts.
    std::vector<std::string> names;
    /// What it is called for people who have no desktop entry: its class or application id; may be empty.
    std::string windowClass;
    /// The program file's name; empty when unknown.
    std::string program;

    bool operator==(const WindowIdentity&) const = default;
};

/// A name some program gave its window, as it may be shown and kept: well-formed, on one line, and not
/// endless.
[[nodiscard]] std::string windowName(std::string_view bytes);

} // namespace brisklog
