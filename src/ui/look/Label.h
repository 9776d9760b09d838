#pragma once

#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QLabel>

namespace brisklog {

/// A text in one of our fonts and colours, always plain. Lines keep the role's line height.
class Label final : public QLabel {
public:
    enum class Lines { one, wrapped };

    explicit Label(const QString& text = {}, FontRole font = FontRole::body13,
                   ColorRole color = &Palette::text, Lines lines = Lines::one, QWidget* parent = nullptr);

    /// Does nothing when the text is the same.
    void setValue(const QString& text);
    void setColor(ColorRole color);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return m_lines == Lines::wrapped; }

    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FontRole m_font;
    ColorRole m_color;
    Lines m_lines;
};

/// One line that shortens itself where there is no room; the full text is its tooltip then, and only then.
class ElidedLabel final : public QLabel {
public:
    explicit ElidedLabel(const QString& text = {}, FontRole font = FontRole::body13,
                         ColorRole color = &Palette::text, Qt::TextElideMode mode = Qt::ElideRight,
                         QWidget* parent = nullptr);

    /// Does nothing when the text is the same.
    void setValue(const QString& text);
    void setColor(ColorRole color);
    [[nodiscard]] bool isElided() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    FontRole m_font;
    ColorRole m_color;
    Qt::TextElideMode m_mode;
};

/// How high the text is when it breaks into lines of that width.
[[nodiscard]] int wrappedHeight(const QString& text, FontRole font, int width);
/// Paints the text broken into lines, from the area's top on; for delegates.
void paintWrapped(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color);

/// The text as a tooltip that shows it letter by letter (never as markup) and wraps when it is long.
[[nodiscard]] QString plainTooltip(const QString& text);

} // namespace brisklog
