#include "profile/screens/NoteBox.h"

#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int radius = 8;
constexpr int edgeLeft = 5;
constexpr int edgeWidth = 3;
constexpr int edgeInset = 9;
constexpr QMargins padding{17, 9, 16, 11};

} // namespace

NoteBox::NoteBox(const QString& heading, const QString& text, QWidget* parent) : QWidget(parent) {
    Column{new Label(heading, FontRole::body13Semibold), space(1),
           new Label(text, FontRole::tab12, &Palette::secondary, Label::Lines::wrapped)}
        .margins(padding)
        .applyTo(*this);
}

void NoteBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    fillRounded(painter, rect(), radius, laidOver(withOpacity(palette.blueFill, 0.08), palette.card));
    frameRounded(painter, rect(), radius, withOpacity(palette.blueFill, 0.16));
    paintTimeEdge(painter, {edgeLeft, edgeInset, edgeWidth, height() - 2 * edgeInset}, palette.blue);
}

} // namespace brisklog
