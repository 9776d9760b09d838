#pragma once

#include "ui/look/Palette.h"

#include <QRect>

class QPainter;

namespace brisklog {

enum class CheckBoxState { empty, ticked };

/// Paints the box of 16 × 16 in the middle of `area`; for delegates.
void paintCheckBox(QPainter& painter, const QRect& area, CheckBoxState state, const Palette& palette);

} // namespace brisklog
