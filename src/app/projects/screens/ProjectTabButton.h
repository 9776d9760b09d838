#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

/// One tab: a symbol with a label that shortens itself, and a line under the selected one.
class ProjectTabButton final : public Clickable {
public:
    enum class Form {
        labelled,
        symbolOnly, ///< the label is the tooltip
    };

    struct Content {
        QString label;
        QString symbol;
        /// Null: that of the label.
        ColorRole symbolColor = nullptr;
        /// Says in words what the symbol's colour says; empty for none.
        QString state = {};
        bool isSelected = false;

        bool operator==(const Content&) const = default;
    };

    explicit ProjectTabButton(QWidget* parent);

    void setContent(const Content& content);
    void setForm(Form form);

    /// Runs when an arrow key asks for the next (1) or the previous (-1) tab.
    void onStep(std::function<void(int)> step) { m_step = std::move(step); }

    /// The width at which the tab shows its whole label, selected or not.
    [[nodiscard]] static int naturalWidth(const QString& label);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    void nextCheckState() override {}

private:
    [[nodiscard]] bool showsWholeLabel() const;
    void updateTooltip();

    Content m_content;
    Form m_form = Form::labelled;
    std::function<void(int)> m_step;
};

} // namespace brisklog
