#pragma once

#include "platform/Log.h"
#include "platform/UserDefaults.h"

namespace brisklog {

/// Removes from the user defaults what old versions left there and what grew too large: the known old keys,
/// and data of more than 100,000 bytes under names that old versions used. The tracker's live history is
/// exempt, whatever its size. Runs once per process; later calls do nothing.
void cleanupUserDefaults(UserDefaults& userDefaults, Log& log);

} // namespace brisklog
