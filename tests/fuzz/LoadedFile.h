#pragma once

#include "Fuzzer.h"
#include "MemoryFiles.h"

#include "support/MemoryUserDefaults.h"
#include "support/RecordingLog.h"

#include <algorithm>

namespace brisklog::fuzz {

/// Tries a file that an object loads on construction and rewrites at every change. Nothing may be lost: a
/// refused file stays as it is and is rescued; a loaded one is rewritten in our own form, which must load
/// with the same values. `Loaded` makes the object and returns its values.
template <class Loaded>
void tryFile(const std::filesystem::path& path, std::string_view bytes) {
    MemoryFiles files;
    test::MemoryUserDefaults defaults;
    test::RecordingLog log;
    files.contents[path] = bytes;
    const auto first = Loaded::valuesFrom(files, defaults, log);
    if (!log.lines.empty()) {
        require(files.contents[path] == bytes, "a refused file stays as it is");
        require(std::ranges::count(files.contents, bytes, &decltype(files.contents)::value_type::second) == 2,
                "a refused file is rescued");
        return;
    }
    const std::string written = files.contents[path];
    const auto second = Loaded::valuesFrom(files, defaults, log);
    require(log.lines.empty(), "our own file loads");
    require(second == first, "our own file holds the same values");
    require(files.contents[path] == written, "the same values are written as the same bytes");
}

} // namespace brisklog::fuzz
