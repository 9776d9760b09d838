#include "platform/JsonFile.h"

#include <cmath>
#include <string>

namespace brisklog {
namespace {

std::string rescuedName(const std::filesystem::path& path, Date written) {
    const double unixMilliseconds = (written.secondsSinceReference + secondsFromUnixEpochToReference) * 1000;
    return path.stem().string() + "-" + std::to_string(std::llround(unixMilliseconds));
}

bool holds(const Files& files, const std::filesystem::path& path, std::string_view bytes) {
    const auto present = files.read(path);
    return present.succeeded() && present.value() == bytes;
}

} // namespace

void rescueUndecodable(Files& files, Log& log, const std::filesystem::path& path, std::string_view bytes) {
    const auto state = files.stateFolder();
    if (!state)
        return;
    const std::string name = rescuedName(path, files.modificationDate(path).value_or(Date{}));
    auto copy = *state / "rescued" / (name + path.extension().string());
    // Two versions written at the same moment are kept side by side.
    for (int version = 2; files.exists(copy) && !holds(files, copy, bytes); ++version)
        copy.replace_filename(name + "-" + std::to_string(version) + path.extension().string());
    if (files.exists(copy))
        return;
    if (const auto kept = files.replace(copy, bytes, Durability::throughToMedium); kept.failed())
        log.print("Error keeping undecodable file: " + kept.error().description);
}

} // namespace brisklog
