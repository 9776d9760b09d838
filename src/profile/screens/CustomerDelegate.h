#pragma once

#include "profile/CustomerRowView.h"
#include "ui/lists/RowDelegate.h"

namespace brisklog {

class CustomerModel;
class RowList;

/// Paints customers as cards.
class CustomerDelegate final : public RowDelegate {
public:
    CustomerDelegate(const CustomerModel& model, RowList& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    const CustomerModel& m_model;
    RowList& m_list;
};

} // namespace brisklog
