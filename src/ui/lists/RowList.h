#pragma once

#include <QListView>
#include <functional>

namespace brisklog {

class RowDelegate;

/// What can be pressed in a row.
enum class RowPart { none, row, trash };

/// A long list with a model and a delegate that paints the rows. It has no ground and no frame, and scrolls
/// by pixels under a floating bar.
class RowList final : public QListView {
public:
    /// `alike`: every row is as high as the first, so that 25,000 cost what the visible ones cost.
    enum class RowHeights { alike, different };

    explicit RowList(RowHeights heights = RowHeights::alike, QWidget* parent = nullptr);

    /// The rows and who paints them; both must outlive the list or be its children.
    void setRows(QAbstractItemModel& model, RowDelegate& delegate);

    /// Gets the keys before the list does, with the current row, and gives back whether it used the key.
    void onKey(std::function<bool(const QModelIndex& current, int key)> handle) {
        m_handleKey = std::move(handle);
    }

    /// Runs when a part of a row, as the delegate tells them apart, was pressed and released.
    void onPressed(std::function<void(const QModelIndex& row, RowPart part)> pressed) {
        m_handlePress = std::move(pressed);
    }

    /// Where the pointer is, in lists whose rows can be pressed.
    [[nodiscard]] bool isHovered(const QModelIndex& row, RowPart part) const {
        return m_hovered.row == row && m_hovered.part == part;
    }

    [[nodiscard]] bool isPressed(const QModelIndex& row, RowPart part) const {
        return m_pressed.row == row && m_pressed.part == part;
    }

    /// The pointer is on something that lies on the rows.
    void forgetPointer() { setHovered({}); }

    /// The focus is here and came from the keyboard: the delegate paints the ring around the current row.
    [[nodiscard]] bool showsFocusRing() const { return m_isFocusFromKeyboard && hasFocus(); }

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

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
