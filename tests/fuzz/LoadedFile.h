#pragma once

#include "Fuzzer.h"
#include "MemoryFiles.h"

#include "support/MemoryUserDefaults.h"
#include "support/RecordingLog.h"

#include <algorithm>

namespace brisklog::fuzz {

/// A file that an object loads when it is made and writes anew at every change. Loaded or refused, no byte
/// may be lost: what was refused stays and is rescued, what was loaded is written in our own form, which
/// loads as the same. `Loaded` makes the object and gives its values.
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
