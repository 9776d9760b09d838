#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>
#include <optional>

namespace brisklog::test {

struct FoundSymbol {
    QString name;
    /// Exact to about 2 of 255.
    QColor color;
};

/// Which of our symbols the picture shows, found by comparing it with each file's own drawing at that size;
/// nothing when it is none of them.
[[nodiscard]] std::optional<FoundSymbol> symbolIn(const QPixmap& pixmap);

} // namespace brisklog::test
