#pragma once

#include "foundation/JsonCoding.h"
#include "platform/Files.h"
#include "platform/Log.h"

#include <filesystem>
#include <utility>

namespace brisklog {

/// Keeps the bytes of a file that could not be decoded as "rescued/NAME-TIME.json" in the program's state
/// folder, TIME being when the file was last written, so that a later save of that file loses nothing. A file
/// rescued before is not copied again. A failure only prints one line.
void rescueUndecodable(Files& files, Log& log, const std::filesystem::path& path, std::string_view bytes);

/// One value kept as one JSON document.
template <class T>
struct JsonFile {
    std::filesystem::path path;
    json::Layout layout;
    Durability durability;

    /// The value; an error when the file cannot be read or decoded. Undecodable bytes are rescued first.
    /// Members whose keys may be missing keep what they have in `value`.
    Result<T> load(Files& files, Log& log, T value = {}) const {
        const auto bytes = files.read(path);
        if (bytes.failed())
            return bytes.error();
        auto decoded = json::decode(bytes.value(), std::move(value));
        if (decoded.failed())
            rescueUndecodable(files, log, path, bytes.value());
        return decoded;
    }

    /// Replaces the whole file; an error when the value cannot be encoded or the file not written.
    Result<Done> save(Files& files, const T& value) const {
        const auto encoded = json::encode(value, layout);
        if (encoded.failed())
            return encoded.error();
        return files.replace(path, encoded.value().bytes(), durability);
    }
};

} // namespace brisklog
