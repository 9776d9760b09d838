#pragma once

#include <QListView>
#include <cstdint>
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

    /// What a model may tell of a row for screen readers, beside the toolkit's roles.
    enum DataRole {
        accessibleRole = Qt::UserRole, ///< the `QAccessible::Role` of what is no plain row
        isOpenRole,                    ///< bool: whether the details of a row that has some are shown
    };

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

    /// Runs when a row was clicked; for lists whose rows have no parts.
    void onClicked(std::function<void(const QModelIndex& row)> clicked);

    /// Whether a click on an enabled row does anything.
    [[nodiscard]] bool canPressRows() const { return m_handlePress || m_handleClick; }

    /// Whether the rows have a trash button.
    [[nodiscard]] bool hasTrash() const;

    /// What a click on that part of the row does; for screen readers. Nothing if the row has gone or is not
    /// enabled.
    void pressRow(const QModelIndex& row, RowPart part = RowPart::row);

    /// Where the row can be pressed, in the viewport.
    [[nodiscard]] QRect pressArea(const QModelIndex& row) const;

    /// Gives the row the focus, as if reached with the keyboard.
    void focusRow(const QModelIndex& row);

    /// Tells screen readers what has changed in the rows they know. The list does so itself when its model
    /// announces changed data.
    void announceRows();

    /// Changes whenever rows come, go or move.
    [[nodiscard]] std::uint64_t rowsRevision() const { return m_rowsRevision; }

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
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;

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
    void announceCurrentRow();

    RowDelegate* m_delegate = nullptr;
    std::function<bool(const QModelIndex&, int)> m_handleKey;
    std::function<void(const QModelIndex&, RowPart)> m_handlePress;
    std::function<void(const QModelIndex&)> m_handleClick;
    Spot m_hovered;
    Spot m_pressed;
    bool m_isFocusFromKeyboard = false;
    std::uint64_t m_rowsRevision = 0;
};

} // namespace brisklog
