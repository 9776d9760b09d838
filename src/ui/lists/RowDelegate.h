#pragma once

#include "ui/lists/RowList.h"

#include <QStyledItemDelegate>

namespace brisklog {

/// One row while it is painted.
struct PaintedRow {
    QRect area;
    QModelIndex index;
    bool isUnderPointer;
    bool showsFocusRing;
};

/// Paints the rows of a list, tells their parts apart, and explains as tooltip what the pointer rests on.
class RowDelegate : public QStyledItemDelegate {
public:
    /// The part at a point of the row that covers `area`; all of it is one unless told.
    [[nodiscard]] virtual RowPart partAt(const QRect& area, const QPoint& point,
                                         const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const final;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const final;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) final;

protected:
    /// Becomes the list's child.
    explicit RowDelegate(RowList& list);

    [[nodiscard]] RowList& list() const { return m_list; }

    /// Gives the painter back as it likes: it is restored.
    virtual void paintRow(QPainter& painter, const PaintedRow& row) const = 0;
    /// The width counts where rows stand side by side.
    [[nodiscard]] virtual QSize sizeOf(const QModelIndex& index) const = 0;
    /// What was shortened there, in full; empty where nothing needs to be said.
    [[nodiscard]] virtual QString tooltipAt(const QRect& area, const QPoint& point,
                                            const QModelIndex& index) const;

private:
    RowList& m_list;
};

} // namespace brisklog
