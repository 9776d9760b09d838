#pragma once

#include "ui/lists/RowDelegate.h"

namespace brisklog {

class FileItemModel;
class Thumbnails;

/// Draws an entry of the logo picker: a folder's symbol or an image's thumbnail, and the name under it. A
/// delegate in spite of its name.
class FileItemView final : public RowDelegate {
public:
    /// What one tile takes in the grid, the gaps to its neighbours included.
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
