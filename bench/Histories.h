#pragma once

#include "autotrack/DailyAppUsage.h"
#include "core/Project.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brisklog::bench {

/// Always the same sequence of identifiers: the system's random source would take longer than what is
/// measured.
[[nodiscard]] Uuid nextId();

/// Entries of ten minutes to two hours, one after another across 20 projects, with realistic names.
[[nodiscard]] std::vector<Project> workHistory(std::int64_t entryCount);

// Applications used

constexpr int applicationCount = 40;
constexpr Date firstDay{725842800};

[[nodiscard]] std::string applicationName(int application);
[[nodiscard]] std::string applicationIdentifier(int application);
/// 4,000 bytes, as a PNG of 32 pixels may take.
[[nodiscard]] std::string applicationIcon(int application);

/// Short sessions of 40 applications, 275 a day.
[[nodiscard]] std::vector<DailyAppUsage> usageHistory(std::int64_t sessionCount);

} // namespace brisklog::bench
