#pragma once

#include "ui/lists/RowDelegate.h"

namespace brisklog {

class CustomerModel;

/// Paints customers as cards.
class CustomerDelegate final : public RowDelegate {
public:
    CustomerDelegate(const CustomerModel& model, RowList& list) : RowDelegate(list), m_model(model) {}

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    const CustomerModel& m_model;
};

} // namespace brisklog
