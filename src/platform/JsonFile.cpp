#include "platform/JsonFile.h"

#include <string>

namespace brisklog {
namespace {

std::string rescuedName(const std::filesystem::path& path, Date written) {
    return path.stem().string() + "-" + std::to_string(millisecondsSince1970(written));
}

enum class Copy { none, same, other };

/// What already exists at the path. An unreadable file counts as none: writing it will report the error.
Copy copyAt(const Files& files, const std::filesystem::path& path, std::string_view bytes) {
    if (!files.exists(path))
        return Copy::none;
    const auto present = files.read(path);
    if (present.failed())
        return Copy::none;
    return present.value() == bytes ? Copy::same : Copy::other;
}

} // namespace

void rescueUndecodable(Files& files, Log& log, const std::filesystem::path& path, std::string_view bytes) {
    const auto state = files.stateFolder();
    if (!state)
        return;
    const std::string name = rescuedName(path, files.modificationDate(path).value_or(Date{}));
    auto copy = *state / "rescued" / (name + path.extension().string());
    auto present = copyAt(files, copy, bytes);
    // Two versions written at the same time are kept side by side.
    for (int version = 2; present == Copy::other; ++version) {
        copy.replace_filename(name + "-" + std::to_string(version) + path.extension().string());
        present = copyAt(files, copy, bytes);
    }
    if (present == Copy::same)
        return;
    if (const auto kept = files.replace(copy, bytes, Durability::throughToMedium); kept.failed())
        log.print("Error keeping undecodable file: " + kept.error().description);
}

} // namespace brisklog
