#pragma once

#include <QStyledItemDelegate>

namespace brisklog {

/// Paints the rows of a list and explains, as tooltip, what the pointer rests on.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) final;

protected:
    /// What was shortened there, in full; empty where nothing needs to be said.
    [[nodiscard]] virtual QString tooltipAt(const QRect& item, const QPoint& point,
                                            const QModelIndex& index) const = 0;
};

} // namespace brisklog
