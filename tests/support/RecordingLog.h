#pragma once

#include "platform/Log.h"

#include <algorithm>
#include <string>
#include <vector>

namespace brisklog::test {

/// Remembers every printed line.
class RecordingLog final : public Log {
public:
    void print(std::string_view line) override { lines.emplace_back(line); }

    /// How many printed lines begin like this.
    [[nodiscard]] std::size_t countStartingWith(std::string_view beginning) const {
        return static_cast<std::size_t>(std::ranges::count_if(
            lines, [beginning](const auto& line) { return line.starts_with(beginning); }));
    }

    std::vector<std::string> lines;
};

} // namespace brisklog::test
