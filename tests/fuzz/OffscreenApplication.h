#pragma once

#include "Fuzzer.h"

namespace brisklog::fuzz {

/// Makes the toolkit's application without a display, once a process.
void needApplication();

} // namespace brisklog::fuzz
