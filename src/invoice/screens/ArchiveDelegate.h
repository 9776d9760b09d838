#pragma once

#include "ui/lists/RowDelegate.h"

#include <QPersistentModelIndex>

namespace brisklog {

class ArchiveModel;
class ArchiveSheetView;
struct Palette;

/// Paints the archive: the explanation at the top, then each month's title and a card with its invoices.
/// Reserves room for the details of an open invoice below it and positions them.
class ArchiveDelegate final : public RowDelegate {
public:
    ArchiveDelegate(const ArchiveModel& model, const ArchiveSheetView& view, RowList& list);

    /// Only an invoice's head can be pressed, to open it.
    [[nodiscard]] RowPart partAt(const QRect& area, const QPoint& point,
                                 const QModelIndex& index) const override;

    [[nodiscard]] QRect pressArea(const QRect& area, const QModelIndex& index) const override;

    /// The row whose details are opening or closing, and how much of them is visible (0 to 1).
    void setMoving(const QModelIndex& index, double shown);

    /// Positions the details inside their row.
    void updateEditorGeometry(QWidget* panel, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    [[nodiscard]] int detailsHeight(const QModelIndex& index) const;
    [[nodiscard]] int explanationHeight() const;
    void paintInvoice(QPainter& painter, const PaintedRow& row, const Palette& palette) const;
    void paintHead(QPainter& painter, const PaintedRow& row, const Palette& palette) const;

    const ArchiveModel& m_model;
    const ArchiveSheetView& m_view;
    QPersistentModelIndex m_moving;
    double m_movingShown = 0;
};

} // namespace brisklog
