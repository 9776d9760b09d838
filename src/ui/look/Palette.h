#pragma once

#include "platform/Appearance.h"

#include <QColor>

class QPalette;
class QWidget;

namespace brisklog {

/// The colours by role, one set for each scheme. A hue has a text tone (text and symbols) and a fill tone
/// (areas, tints, bars); white text stands on blue and red fill only.
struct Palette {
    ColorScheme scheme;

    QColor ground;
    QColor card;
    QColor field;
    QColor text;
    QColor secondary;
    /// Hovered and selected things.
    QColor control;
    /// Only under the white text of a hovered deleting NavigationButton.
    QColor controlUnderWhiteText;
    /// Card borders and hairlines.
    QColor line;
    /// The bottom line of fields, the frame of check boxes, a switch that is off, the base line of charts.
    QColor rule;
    QColor blue;
    QColor blueFill;
    QColor green;
    QColor greenFill;
    QColor orange;
    QColor orangeFill;
    QColor red;
    QColor redFill;
    QColor primaryHovered;
    QColor primaryPressed;
    QColor tooltip;
    QColor tooltipText;
    QColor chartBar;
    QColor white;

    [[nodiscard]] static const Palette& of(ColorScheme scheme);
    /// Of text and symbols while they are disabled.
    [[nodiscard]] QColor disabled() const;

    /// The set to paint with: that of the scheme applied last, the light one before.
    [[nodiscard]] static const Palette& current();
};

/// Names a colour independently of the scheme: `&Palette::secondary`.
using ColorRole = QColor Palette::*;

/// The colour, that much of it: 0 is clear, 1 leaves it as it is.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

/// What the eye sees where a translucent colour lies on an opaque one.
[[nodiscard]] QColor laidOver(const QColor& color, const QColor& ground);

/// The ratio of luminances between two opaque colours, from 1 to 21.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// The scheme in the toolkit's own roles, for the parts of widgets the toolkit paints.
[[nodiscard]] QPalette toolkitPalette(const Palette& palette);

/// Keeps the toolkit from painting a ground of its own behind the widget's content.
void clearGround(QWidget& widget);

/// Makes this scheme the current one and repaints everything that is open (windows, sheets, menus, tooltips),
/// at once.
void applyColorScheme(ColorScheme scheme);

} // namespace brisklog
