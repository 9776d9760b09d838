#pragma once

#include "platform/Appearance.h"

#include <QColor>

class QPalette;
class QWidget;

namespace brisklog {

/// The colours by role, one set for each scheme. A hue has a text tone (text and symbols) and a fill tone
/// (areas, tints, bars); white text is used only on blue and red fills.
struct Palette {
    ColorScheme scheme;

    QColor ground;
    QColor card;
    QColor field;
    QColor text;
    QColor secondary;
    /// Examples in empty fields: lighter than any value.
    QColor placeholder;
    /// For hovered and selected items.
    QColor control;
    /// Only behind the white text of a hovered destructive NavigationButton.
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
    /// The colour of disabled text and symbols.
    [[nodiscard]] QColor disabled() const;

    /// The palette to paint with: that of the scheme applied last, initially the light one.
    [[nodiscard]] static const Palette& current();
};

/// Names a colour independently of the scheme: `&Palette::secondary`.
using ColorRole = QColor Palette::*;

/// The colour with its opacity scaled: 0 is transparent, 1 leaves it unchanged.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

/// The result of blending a translucent colour over an opaque one.
[[nodiscard]] QColor blendedOver(const QColor& color, const QColor& ground);

/// The contrast ratio of two opaque colours, from 1 to 21.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// The palette in the toolkit's own roles, for the parts of widgets that the toolkit paints.
[[nodiscard]] QPalette toolkitPalette(const Palette& palette);

/// Keeps the toolkit from painting a background behind the widget's content.
void clearGround(QWidget& widget);

/// Makes this scheme the current one and immediately repaints everything that is open (windows, sheets,
/// menus, tooltips).
void applyColorScheme(ColorScheme scheme);

} // namespace brisklog
