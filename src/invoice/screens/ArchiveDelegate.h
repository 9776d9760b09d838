#pragma once

#include "ui/lists/RowDelegate.h"

#include <QPersistentModelIndex>

namespace brisklog {

class ArchiveModel;
class ArchiveSheetView;
class RowList;
struct Palette;

/// Paints the archive: the sentence on top, months, and the invoices of each in a card. Under an opened
/// invoice it keeps room for its details and places them.
class ArchiveDelegate final : public RowDelegate {
public:
    ArchiveDelegate(const ArchiveModel& model, const ArchiveSheetView& view, RowList& list);

    /// The point is on the part of an invoice that is pressed to open it, for an item that covers `item`.
    [[nodiscard]] bool isOnHead(const QModelIndex& index, const QRect& item, const QPoint& point) const;

    /// The invoice under the pointer.
    void setHovered(const QModelIndex& index);

    /// The row whose details are arriving or leaving, and how much of them is seen (0 to 1).
    void setMoving(const QModelIndex& index, double shown);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The details' place inside their row.
    void updateEditorGeometry(QWidget* panel, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    [[nodiscard]] int detailsHeight(const QModelIndex& index) const;
    [[nodiscard]] int explanationHeight() const;
    void paintInvoice(QPainter& painter, const QRect& item, const QModelIndex& index,
                      const Palette& palette) const;
    void paintHead(QPainter& painter, const QRect& item, const QModelIndex& index,
                   const Palette& palette) const;

    const ArchiveModel& m_model;
    const ArchiveSheetView& m_view;
    RowList& m_list;
    QPersistentModelIndex m_hovered;
    QPersistentModelIndex m_moving;
    double m_movingShown = 0;
};

} // namespace brisklog
