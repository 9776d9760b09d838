#pragma once

#include "ui/lists/RowList.h"

#include <QStyledItemDelegate>

namespace brisklog {

/// A row to be painted.
struct PaintedRow {
    QRect area;
    QModelIndex index;
    bool isUnderPointer;
    bool showsFocusRing;
};

/// Paints the rows of a list, hit-tests their parts and provides their tooltips.
class RowDelegate : public QStyledItemDelegate {
public:
    /// The part at a point of the row that covers `area`; by default the row is a single part.
    [[nodiscard]] virtual RowPart partAt(const QRect& area, const QPoint& point,
                                         const QModelIndex& index) const;

    /// Whether the rows have a trash button, which is then the part `trash`.
    [[nodiscard]] virtual bool hasTrash() const { return false; }

    /// The part of the row's area where it can be pressed, without what may be shown below it.
    [[nodiscard]] virtual QRect pressArea(const QRect& area, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const final;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const final;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) final;

protected:
    /// The list becomes its parent.
    explicit RowDelegate(RowList& list);

    [[nodiscard]] RowList& list() const { return m_list; }

    /// Need not restore the painter: the caller does.
    virtual void paintRow(QPainter& painter, const PaintedRow& row) const = 0;
    /// The width matters only where rows are side by side.
    [[nodiscard]] virtual QSize sizeOf(const QModelIndex& index) const = 0;
    /// The full text of what is shortened at that point; empty for no tooltip.
    [[nodiscard]] virtual QString tooltipAt(const QRect& area, const QPoint& point,
                                            const QModelIndex& index) const;

private:
    RowList& m_list;
};

} // namespace brisklog
