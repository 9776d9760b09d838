#pragma once

#include "invoice/InvoiceEntryRowView.h"
#include "ui/lists/RowDelegate.h"
#include "ui/look/Palette.h"

#include <QPersistentModelIndex>
#include <optional>

namespace brisklog {

class InvoiceEntryModel;
class RowList;

/// Paints the invoice sheet's rows and says which part of one lies under a point.
class InvoiceEntryDelegate final : public RowDelegate {
public:
    /// What can be pressed in a row.
    enum class Part { none, row, trash };

    /// Height of a row with the gap to the next one.
    static constexpr int rowStep = 38;
    static constexpr const char16_t* trashTooltip = u"Eintrag löschen";

    InvoiceEntryDelegate(const InvoiceEntryModel& model, RowList& list);

    /// The part at a point, for an item that covers `item`.
    [[nodiscard]] static Part partAt(const QRect& item, const QPoint& point);

    /// The trash button that is drawn as hovered, and as pressed.
    void setActiveTrash(const QModelIndex& index, bool isPressed);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    void paintCells(QPainter& painter, const QRect& row, const InvoiceEntryRowView& shown) const;

    const InvoiceEntryModel& m_model;
    RowList& m_list;
    QPersistentModelIndex m_activeTrash;
    bool m_isTrashPressed = false;
};

} // namespace brisklog
