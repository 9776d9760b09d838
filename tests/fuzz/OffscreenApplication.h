#pragma once

#include "Fuzzer.h"

namespace brisklog::fuzz {

/// Makes the toolkit's application without a display, once per process.
void ensureApplication();

} // namespace brisklog::fuzz
