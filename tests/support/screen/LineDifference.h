#pragma once

#include <QString>

namespace brisklog::test {

/// What changed from the one text to the other, line by line, each change under the less indented lines that
/// it belongs to.
[[nodiscard]] QString difference(const QString& before, const QString& after);

} // namespace brisklog::test
