#pragma once

#include "platform/panel/QtStatusItem.h"

namespace brisklog {

/// The program's icon for the panel, drawn from its own symbols.
[[nodiscard]] StatusIcons makeStatusIcons();

} // namespace brisklog
