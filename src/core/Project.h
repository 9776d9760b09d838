#pragma once

#include "core/TimeEntry.h"

#include <vector>

namespace brisklog {

/// A project with its finished time entries.
struct Project {
    Uuid id;
    std::string name;
    /// Euros per hour; absent means no rate.
    std::optional<double> hourlyRate;
    /// In the order in which they were added.
    std::vector<TimeEntry> entries;

    /// Seconds over all entries, invoiced ones included; unfinished ones count up to `now`.
    [[nodiscard]] TimeInterval totalDuration(Date now) const;

    /// Identity alone: two versions of the same project with different entries are deliberately equal.
    bool operator==(const Project& other) const { return id == other.id; }
};

constexpr auto jsonFields(std::type_identity<Project>) {
    return std::tuple{json::field<&Project::id>("id"), json::field<&Project::name>("name"),
                      json::field<&Project::hourlyRate>("hourlyRate"),
                      json::field<&Project::entries>("entries")};
}

} // namespace brisklog

/// By identity alone, like equality.
template <>
struct std::hash<brisklog::Project> {
    std::size_t operator()(const brisklog::Project& project) const noexcept {
        return std::hash<brisklog::Uuid>{}(project.id);
    }
};
