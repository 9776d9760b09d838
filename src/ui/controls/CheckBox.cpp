#include "ui/controls/CheckBox.h"

#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int boxSize = 16;
constexpr int boxRadius = 4;
constexpr int checkSize = 12;

} // namespace

void paintCheckBox(QPainter& painter, const QRect& area, CheckBoxState state, const Palette& palette) {
    QRect box(0, 0, boxSize, boxSize);
    box.moveTopLeft({area.x() + (area.width() - boxSize) / 2, area.y() + (area.height() - boxSize) / 2});
    if (state == CheckBoxState::ticked) {
        fillRounded(painter, box, boxRadius, palette.blueFill);
        paintSymbol(painter, box, u"checkmark"_s, checkSize, palette.white);
    } else {
        fillRounded(painter, box, boxRadius, palette.field);
        frameRounded(painter, box, boxRadius, palette.rule, 1.5);
    }
}

} // namespace brisklog
