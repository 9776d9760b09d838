#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

/// Determines the colours of a NavigationButton.
struct NavigationButtonState {
    bool isDisabled = false;
    bool destructive = false;
    bool isSelected = false;
    bool accent = false;
    bool isHovered = false;

    bool operator==(const NavigationButtonState&) const = default;
};

/// The colour of text and symbol.
[[nodiscard]] QColor navigationButtonForeground(const NavigationButtonState& state, const Palette& palette);
/// The colour behind them; transparent where there is none.
[[nodiscard]] QColor navigationButtonBackground(const NavigationButtonState& state, const Palette& palette);

/// A symbol with a caption, for the four sections in the navigation bar and for actions in rows of other
/// screens. Its tooltip is the caption.
class NavigationButton final : public Clickable {
public:
    /// `bar`: 84 × 46, the symbol above the caption. `row`: height 30, the symbol before the caption.
    /// `symbolOnly`: 30 × 30; the caption is the tooltip and accessible name.
    enum class Form { bar, row, symbolOnly };

    struct Content {
        QString icon;
        QString label;
        std::function<void()> action;
        bool isDisabled = false;
        bool destructive = false;
        bool isSelected = false;
        bool accent = false;
    };

    explicit NavigationButton(const Content& content, Form form = Form::row, QWidget* parent = nullptr);

    void setDisabled(bool isDisabled) { setEnabled(!isDisabled); }

    void setSelected(bool isSelected);

    [[nodiscard]] bool isSelected() const { return m_isSelected; }

    /// In the navigation bar the buttons are tabs, of which one is chosen.
    [[nodiscard]] std::optional<bool> isChosen() const override;

    [[nodiscard]] NavigationButtonState state() const;

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBar(QPainter& painter, const QColor& color) const;
    void paintRow(QPainter& painter, const QColor& color) const;

    QString m_icon;
    Form m_form;
    bool m_destructive;
    bool m_isSelected;
    bool m_accent;
};

} // namespace brisklog
