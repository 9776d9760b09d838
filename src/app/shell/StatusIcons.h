#pragma once

#include "platform/qt/QtStatusItem.h"

namespace brisklog {

/// The program's icon for the panel, drawn from its own symbols.
[[nodiscard]] StatusIcons makeStatusIcons();

} // namespace brisklog
