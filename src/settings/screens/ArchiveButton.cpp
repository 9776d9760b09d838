#include "settings/screens/ArchiveButton.h"

#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 10;
constexpr int paddingAcross = 14;
constexpr int paddingDown = 12;
constexpr int symbolSize = 22;
constexpr int symbolGap = 12;
/// The lowest pixel row of a card is its shadow.
constexpr int shadow = 1;

} // namespace

ArchiveButton::ArchiveButton(QWidget* parent) : Clickable(radius, parent) {
    const QString headline = u"Archiv anzeigen"_s;
    const QString explanation =
        u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s;
    setAccessibleName(headline);
    setAccessibleDescription(explanation);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    Column{new Label(headline, FontRole::body13Semibold), space(2),
           new Label(explanation, FontRole::tab12, &Palette::secondary, Label::Lines::wrapped)}
        .margins({paddingAcross, paddingDown, paddingAcross + symbolSize + symbolGap, paddingDown + shadow})
        .applyTo(*this);
}

void ArchiveButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::of(*this);
    if (isHovered() || isDown())
        paintHoveredCard(painter, rect(), palette);
    else
        paintCard(painter, rect(), palette);
    const QRect symbol(width() - paddingAcross - symbolSize, 0, symbolSize, height() - shadow);
    paintSymbol(painter, symbol, u"chevron.right.circle.fill"_s, symbolSize, palette.blue);
}

} // namespace brisklog
