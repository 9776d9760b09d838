#pragma once

#include <QListView>

namespace brisklog {

/// A long list with a model and a delegate that paints the rows. It has no ground and no frame, scrolls by
/// pixels under a floating bar, and reports hovering to the delegate.
class RowList final : public QListView {
public:
    /// `alike`: every row is as high as the first, so that 25,000 cost what the visible ones cost.
    enum class RowHeights { alike, different };

    explicit RowList(RowHeights heights = RowHeights::alike, QWidget* parent = nullptr);

    /// The focus is here and came from the keyboard: the delegate paints the ring around the current row.
    [[nodiscard]] bool showsFocusRing() const { return m_isFocusFromKeyboard && hasFocus(); }

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_isFocusFromKeyboard = false;
};

} // namespace brisklog
