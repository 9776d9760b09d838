#pragma once

#include <QString>
#include <string_view>

namespace brisklog {

/// Converts a text of the state classes for the toolkit.
[[nodiscard]] inline QString screenText(std::string_view utf8) { return QString::fromUtf8(utf8); }

} // namespace brisklog
