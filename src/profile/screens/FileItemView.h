#pragma once

#include "ui/lists/RowDelegate.h"

namespace brisklog {

class FileItemModel;
class Thumbnails;

/// Draws an entry of the logo picker: a folder's symbol or an image's thumbnail, with the name below it. A
/// delegate, despite its name.
class FileItemView final : public RowDelegate {
public:
    /// The size of a tile in the grid, including the gaps to its neighbours.
    static constexpr QSize cell{145, 132};
    /// The longer side of a thumbnail.
    static constexpr int pictureSide = 80;

    FileItemView(const FileItemModel& model, const Thumbnails& thumbnails, RowList& list);

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    void paintPicture(QPainter& painter, const QRect& box, const QModelIndex& index) const;

    const FileItemModel& m_model;
    const Thumbnails& m_thumbnails;
};

} // namespace brisklog
