#pragma once

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Log.h"

namespace brisklog {

/// Keeps a copy of a file that has just been loaded as "backups/DAY/NAME" in the program's state folder,
/// unless that day has one already, and removes all but the last 14 days. The program never reads them; they
/// are for a user who deleted too much. A failure only prints one line.
void keepDailyCopy(Files& files, Log& log, const Clock& clock, const std::filesystem::path& file);

} // namespace brisklog
