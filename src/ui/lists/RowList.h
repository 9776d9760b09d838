#pragma once

#include <QListView>
#include <functional>

namespace brisklog {

class RowDelegate;

/// What can be pressed in a row.
enum class RowPart { none, row, trash };

/// A long list with a model and a delegate that paints the rows. It has no background and no frame, and
/// scrolls by pixels with a floating scroll bar. Only the keyboard brings rows into view, never the pointer.
/// In a `ScrollArea` it may be as high as all its rows: still only those in view cost time.
class RowList final : public QListView {
public:
    /// `alike`: every row is as high as the first, so that only visible rows cost time, even with 25,000 of
    /// them.
    enum class RowHeights { alike, different };

    explicit RowList(RowHeights heights = RowHeights::alike, QWidget* parent = nullptr);

    /// Scrolls a `ScrollArea` that the list is in, too.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    /// The rows, and the delegate that paints them. The list owns neither, and is empty once the model has
    /// gone.
    void setRows(QAbstractItemModel& model, RowDelegate& delegate);

    /// Receives keys before the list does, with the current row; returns whether it handled the key.
    void onKey(std::function<bool(const QModelIndex& current, int key)> handle) {
        m_handleKey = std::move(handle);
    }

    /// Runs when a part of a row, as hit-tested by the delegate, was pressed and released.
    void onPressed(std::function<void(const QModelIndex& row, RowPart part)> pressed) {
        m_handlePress = std::move(pressed);
    }

    /// Whether the pointer is on that part; only in lists whose rows can be pressed.
    [[nodiscard]] bool isHovered(const QModelIndex& row, RowPart part) const {
        return m_hovered.row == row && m_hovered.part == part;
    }

    [[nodiscard]] bool isPressed(const QModelIndex& row, RowPart part) const {
        return m_pressed.row == row && m_pressed.part == part;
    }

    /// Call when the pointer moves onto a widget that covers the rows.
    void forgetPointer() { setHovered({}); }

    /// Whether the list has the focus and got it from the keyboard: the delegate then paints the ring around
    /// the current row.
    [[nodiscard]] bool showsFocusRing() const { return m_isFocusFromKeyboard && hasFocus(); }

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    struct Spot {
        QPersistentModelIndex row;
        RowPart part = RowPart::none;

        bool operator==(const Spot&) const = default;
    };

    [[nodiscard]] Spot spotAt(const QPoint& position) const;
    void setHovered(const Spot& spot);
    void pressed(const QPoint& position);
    void released(const QPoint& position);

    RowDelegate* m_delegate = nullptr;
    std::function<bool(const QModelIndex&, int)> m_handleKey;
    std::function<void(const QModelIndex&, RowPart)> m_handlePress;
    Spot m_hovered;
    Spot m_pressed;
    bool m_isFocusFromKeyboard = false;
};

} // namespace brisklog
