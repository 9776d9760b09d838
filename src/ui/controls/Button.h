#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

/// A button with a caption and optionally a symbol before it.
class Button final : public Clickable {
public:
    /// `alertDestructive` is the filled red button of alerts; `textual` has no background.
    enum class Kind { primary, secondary, destructive, alertDestructive, textual };
    /// 32, 34 (next to a field of 34) or 26 high.
    enum class Size { normal, tall, small };

    explicit Button(const QString& caption, Kind kind = Kind::secondary, Size size = Size::normal,
                    QWidget* parent = nullptr);

    void setSymbol(const QString& name);
    /// Shows a chevron after the caption to indicate that it opens a menu.
    void setOpensMenu();
    /// The colour of a textual button's caption; blue by default.
    void setTextColor(ColorRole color);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QColor foreground(const Palette& palette) const;
    void paintGround(QPainter& painter, const Palette& palette) const;
    void paintContent(QPainter& painter, const QColor& color) const;
    [[nodiscard]] int contentWidth() const;

    Kind m_kind;
    Size m_size;
    QString m_symbol;
    bool m_opensMenu = false;
    ColorRole m_textColor = &Palette::blue;
};

} // namespace brisklog
