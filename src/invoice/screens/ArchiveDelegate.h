#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace brisklog {

class ArchiveModel;
class ArchiveSheetView;
class ListView;
struct ArchiveRow;
struct Palette;

/// Paints the archive: the sentence on top, months, and the invoices of each in a card, opened ones with
/// their details. It says which part of a row lies under a point.
class ArchiveDelegate final : public QStyledItemDelegate {
public:
    /// What can be pressed in a row.
    enum class Part { none, head, trash };

    static constexpr const char16_t* trashTooltip = u"Rechnung löschen";

    ArchiveDelegate(const ArchiveModel& model, const ArchiveSheetView& view, ListView& list);

    /// The part at a point, for an item that covers `item`.
    [[nodiscard]] Part partAt(const QModelIndex& index, const QRect& item, const QPoint& point) const;

    /// What is under the pointer, and whether it is held down.
    void setActive(const QModelIndex& index, Part part, bool isPressed);

    /// The row whose details are arriving or leaving, and how much of them is seen (0 to 1).
    void setMoving(const QModelIndex& index, double shown);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] int detailsHeight(const QModelIndex& index) const;
    [[nodiscard]] int explanationHeight() const;
    [[nodiscard]] QString tooltip(const QRect& item, const QPoint& point, const QModelIndex& index) const;
    void paintInvoice(QPainter& painter, const QRect& item, const QModelIndex& index,
                      const Palette& palette) const;
    void paintHead(QPainter& painter, const QRect& item, const QModelIndex& index,
                   const Palette& palette) const;
    void paintDetails(QPainter& painter, const QRect& item, const QModelIndex& index,
                      const Palette& palette) const;

    const ArchiveModel& m_model;
    const ArchiveSheetView& m_view;
    ListView& m_list;
    QPersistentModelIndex m_active;
    Part m_activePart = Part::none;
    bool m_isPressed = false;
    QPersistentModelIndex m_moving;
    double m_movingShown = 0;
};

} // namespace brisklog
