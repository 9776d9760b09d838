#pragma once

#include "profile/CustomerRowView.h"

#include <QStyledItemDelegate>

namespace brisklog {

class CustomerModel;
class ListView;

/// Paints customers as cards.
class CustomerDelegate final : public QStyledItemDelegate {
public:
    CustomerDelegate(const CustomerModel& model, ListView& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// What was shortened is shown in full.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    const CustomerModel& m_model;
    ListView& m_list;
};

} // namespace brisklog
