#pragma once

#include <QWidget>

namespace brisklog {

/// Says what a section will hold, until it does.
[[nodiscard]] QWidget* makePlaceholderScreen(int section);

} // namespace brisklog
