#pragma once

#include <QKeyEvent>

namespace brisklog {

[[nodiscard]] inline bool isReturn(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

[[nodiscard]] inline bool isReturn(const QKeyEvent& event) { return isReturn(event.key()); }

/// Reserved for the sheet's main action: fields ignore it.
[[nodiscard]] inline bool isControlReturn(const QKeyEvent& event) {
    return isReturn(event) && event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace brisklog
