#pragma once

#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QLabel>

namespace brisklog {

/// The base of our labels: plain text in one of our fonts and colours.
class RoleLabel : public QLabel {
public:
    /// Does nothing when the text is unchanged.
    void setValue(const QString& text);
    void setColor(ColorRole color);

protected:
    RoleLabel(const QString& text, FontRole font, ColorRole color, QWidget* parent);

    [[nodiscard]] FontRole fontRole() const { return m_font; }

    /// The colour to paint with: paler while the label is disabled.
    [[nodiscard]] QColor color() const;

private:
    FontRole m_font;
    ColorRole m_color;
};

/// A text on one or several lines, with the role's line height.
class Label final : public RoleLabel {
public:
    enum class Lines { one, wrapped };

    explicit Label(const QString& text = {}, FontRole font = FontRole::body13,
                   ColorRole color = &Palette::text, Lines lines = Lines::one, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return m_lines == Lines::wrapped; }

    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Lines m_lines;
};

/// One line, elided where there is not enough room; only then the full text is its tooltip.
class ElidedLabel final : public RoleLabel {
public:
    explicit ElidedLabel(const QString& text = {}, FontRole font = FontRole::body13,
                         ColorRole color = &Palette::text, Qt::TextElideMode mode = Qt::ElideRight,
                         QWidget* parent = nullptr);

    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode m_mode;
};

/// The height of the text wrapped at that width.
[[nodiscard]] int wrappedHeight(const QString& text, FontRole font, int width);
/// Paints the text wrapped, from the top of the area; for delegates.
void paintWrapped(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color);

/// The text if it does not fit into that width, else nothing; for tooltips.
[[nodiscard]] QString textIfElided(const QString& text, FontRole font, int width);

/// The text as a tooltip that shows it literally (never as markup) and wraps when it is long.
[[nodiscard]] QString plainTooltip(const QString& text);

} // namespace brisklog
