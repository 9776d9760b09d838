#pragma once

#include <QMargins>
#include <QtGlobal>
#include <functional>
#include <initializer_list>
#include <vector>

class QBoxLayout;
class QWidget;

namespace brisklog {

/// An item of a `Column` or `Row`: a widget, a nested column or row, a space or a stretch.
class LayoutItem {
public:
    using Adder = std::function<void(QBoxLayout&)>;

    explicit LayoutItem(Adder add) : m_add(std::move(add)) {}

    /// The widget becomes a child of the widget the layout is applied to.
    LayoutItem(QWidget* widget);

    LayoutItem(QWidget& widget) : LayoutItem(&widget) {}

    void addTo(QBoxLayout& layout) const { m_add(layout); }

private:
    Adder m_add;
};

/// A layout as a value, so that the code mirrors the screen:
/// `Column{header, space(12), Row{field, startButton}.spacing(8)}.margins(8).applyTo(*this)`.
/// Without `spacing` and `margins` there is no space between and around the items.
class LayoutBox {
public:
    LayoutBox& spacing(int pixels);

    LayoutBox& margins(int all) { return margins({all, all, all, all}); }

    LayoutBox& margins(const QMargins& margins);
    /// Appends an item, for lists that are only known at run time.
    LayoutBox& add(LayoutItem item);

    /// Replaces the widget's layout. Items that are not in the new layout stay children of the widget.
    void applyTo(QWidget& widget) const;

    operator LayoutItem() const;

protected:
    enum class Direction { down, across };

    LayoutBox(Direction direction, std::initializer_list<LayoutItem> items)
        : m_direction(direction), m_items(items) {}

private:
    [[nodiscard]] QBoxLayout* build() const;

    Direction m_direction;
    std::vector<LayoutItem> m_items;
    QMargins m_margins;
    int m_spacing = 0;
};

/// Items from top to bottom.
class Column final : public LayoutBox {
public:
    Column(std::initializer_list<LayoutItem> items) : LayoutBox(Direction::down, items) {}
};

/// Items from left to right.
class Row final : public LayoutBox {
public:
    Row(std::initializer_list<LayoutItem> items) : LayoutBox(Direction::across, items) {}
};

/// Gives the widget and all it is in their places now, after a change of size, and not only in the event
/// loop's next turn.
void layOutNow(QWidget& widget);

/// The first box at the left and the second at the right; where they do not fit beside one another, the
/// second one below, `gap` apart in either direction.
[[nodiscard]] LayoutItem folding(const LayoutBox& left, const LayoutBox& right, int gap);

/// Wraps the box in a widget, to show, hide or size it as one.
[[nodiscard]] QWidget* asWidget(const LayoutBox& box);
/// The same, with a fixed height.
[[nodiscard]] QWidget* asBar(const LayoutBox& box, int height);

/// Empty space that takes a share of the remaining room.
[[nodiscard]] LayoutItem stretch(int share = 1);
/// A fixed gap.
[[nodiscard]] LayoutItem space(int pixels);
/// The item itself takes a share of the remaining room.
[[nodiscard]] LayoutItem expanding(QWidget* widget, int share = 1);
[[nodiscard]] LayoutItem expanding(const LayoutBox& box, int share = 1);
/// The widget keeps its size hint and is aligned in its cell.
[[nodiscard]] LayoutItem aligned(QWidget* widget, Qt::Alignment alignment);

} // namespace brisklog
