#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

/// The current look of a symbol button, for the widget and for delegates that paint one.
struct SymbolButtonLook {
    /// The symbol's colour at rest; on hover, secondary changes to the text colour.
    ColorRole color = &Palette::secondary;
    bool isDeleting = false;
    bool isHovered = false;
    bool isPressed = false;
    bool isEnabled = true;
};

/// Paints background and symbol into `area`; for delegates.
void paintSymbolButton(QPainter& painter, const QRect& area, const QString& symbol, int symbolSize,
                       const SymbolButtonLook& look, const Palette& palette);

/// A button with only a symbol. Its tooltip says what it does and is also its accessible name.
class SymbolButton final : public Clickable {
public:
    /// `normal`: 28 × 28, symbol 18; `closing`: 28 × 28, symbol 20; `timer`: 36 × 36, symbol 24.
    enum class Size { normal, closing, timer };
    enum class Purpose { acting, deleting };

    SymbolButton(const QString& symbol, const QString& tooltip, Size size = Size::normal,
                 Purpose purpose = Purpose::acting, QWidget* parent = nullptr);

    void setSymbol(const QString& symbol);
    /// Sets the tooltip and the accessible name.
    void setTooltip(const QString& tooltip);
    /// The symbol's colour at rest; secondary by default.
    void setColor(ColorRole color);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    Size m_size;
    Purpose m_purpose;
    ColorRole m_color = &Palette::secondary;
};

} // namespace brisklog
