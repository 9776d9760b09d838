#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

/// One tab: a symbol with a label that is shortened as needed, and a line at the bottom when selected.
class ProjectTabButton final : public Clickable {
public:
    enum class Form {
        labelled,
        symbolOnly, ///< the label is the tooltip
    };

    struct Content {
        QString label;
        QString symbol;
        /// Null: the label's colour.
        ColorRole symbolColor = nullptr;
        /// The meaning of the symbol's colour in words; may be empty.
        QString state = {};
        bool isSelected = false;

        bool operator==(const Content&) const = default;
    };

    explicit ProjectTabButton(QWidget* parent);

    void setContent(const Content& content);
    void setForm(Form form);

    /// Runs when an arrow key requests the next (1) or the previous (-1) tab.
    void onStep(std::function<void(int)> step) { m_step = std::move(step); }

    /// The width at which the tab shows its full label, selected or not.
    [[nodiscard]] static int naturalWidth(const QString& label);

    [[nodiscard]] std::optional<bool> isChosen() const override { return m_content.isSelected; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool showsWholeLabel() const;
    void updateTooltip();

    Content m_content;
    Form m_form = Form::labelled;
    std::function<void(int)> m_step;
};

} // namespace brisklog
