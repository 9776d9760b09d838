#pragma once

#include "ui/lists/RowDelegate.h"

namespace brisklog {

class FileItemModel;
class RowList;
class Thumbnails;

/// Draws an entry of the logo picker: a folder's symbol or an image's thumbnail, and the name under it.
class FileItemView final : public RowDelegate {
public:
    /// What one tile takes in the grid, the gaps to its neighbours included.
    static constexpr QSize cell{145, 132};
    /// The longer side of a thumbnail.
    static constexpr int pictureSide = 80;

    FileItemView(const FileItemModel& model, const Thumbnails& thumbnails, RowList& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    void paintPicture(QPainter& painter, const QRect& box, const QModelIndex& index) const;

    const FileItemModel& m_model;
    const Thumbnails& m_thumbnails;
    RowList& m_list;
};

} // namespace brisklog
