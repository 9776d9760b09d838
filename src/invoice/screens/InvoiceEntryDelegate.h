#pragma once

#include "invoice/InvoiceEntryRowView.h"
#include "ui/lists/RowDelegate.h"

namespace brisklog {

class InvoiceEntryModel;

/// Paints the invoice sheet's rows, each with a trash button.
class InvoiceEntryDelegate final : public RowDelegate {
public:
    /// Height of a row including the gap to the next one.
    static constexpr int rowStep = 38;

    InvoiceEntryDelegate(const InvoiceEntryModel& model, RowList& list) : RowDelegate(list), m_model(model) {}

    [[nodiscard]] RowPart partAt(const QRect& area, const QPoint& point,
                                 const QModelIndex& index) const override;

    [[nodiscard]] bool hasTrash() const override { return true; }

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    void paintCells(QPainter& painter, const QRect& row, const InvoiceEntryRowView& shown) const;

    const InvoiceEntryModel& m_model;
};

} // namespace brisklog
