#pragma once

#include <QString>
#include <string_view>

namespace brisklog {

/// A text of the state side as the toolkit takes it.
[[nodiscard]] inline QString screenText(std::string_view utf8) { return QString::fromUtf8(utf8); }

} // namespace brisklog
