#include "profile/screens/FileItemView.h"

#include "profile/Thumbnails.h"
#include "profile/screens/FileItemModel.h"
#include "ui/look/BitmapImage.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// The tile inside its cell, with room around it for the focus ring.
constexpr QRect tileInCell{4, 5, 132, 124};
constexpr int tileRadius = 8;
constexpr int padding = 10;
constexpr int pictureRadius = 6;
constexpr int symbolSize = 40;
constexpr int nameTop = 98;

QRect tileIn(const QRect& cell) { return tileInCell.translated(cell.topLeft()); }

QRect pictureBoxIn(const QRect& tile) {
    const int left = tile.left() + (tile.width() - FileItemView::pictureSide) / 2;
    return {left, tile.top() + padding, FileItemView::pictureSide, FileItemView::pictureSide};
}

QRect nameBoxIn(const QRect& tile) {
    return {tile.left() + padding, tile.top() + nameTop, tile.width() - 2 * padding,
            lineHeight(FontRole::caption11)};
}

FontRole nameFont(bool isMarked) { return isMarked ? FontRole::caption11Medium : FontRole::caption11; }

void paintThumbnail(QPainter& painter, const QRect& box, const QImage& picture) {
    QRectF place(QPointF(), picture.deviceIndependentSize());
    place.moveCenter(QRectF(box).center());
    place.moveTopLeft(place.topLeft().toPoint());
    QPainterPath shape;
    shape.addRoundedRect(place, pictureRadius, pictureRadius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(shape, Qt::IntersectClip);
    painter.drawImage(place, picture);
    painter.restore();
}

} // namespace

FileItemView::FileItemView(const FileItemModel& model, const Thumbnails& thumbnails, RowList& list)
    : RowDelegate(list), m_model(model), m_thumbnails(thumbnails) {}

QSize FileItemView::sizeOf(const QModelIndex& /*index*/) const { return cell; }

void FileItemView::paintRow(QPainter& painter, const PaintedRow& row) const {
    const Palette& palette = Palette::current();
    const QRect tile = tileIn(row.area);
    const bool isMarked = row.showsFocusRing || row.isUnderPointer;
    if (isMarked)
        fillRounded(painter, tile, tileRadius, withOpacity(palette.control, 0.7));
    if (row.showsFocusRing)
        paintFocusRing(painter, tile, tileRadius, palette);
    paintPicture(painter, pictureBoxIn(tile), row.index);
    paintText(painter, nameBoxIn(tile), row.index.data().toString(), nameFont(isMarked), palette.text,
              Qt::AlignCenter, Qt::ElideMiddle);
}

void FileItemView::paintPicture(QPainter& painter, const QRect& box, const QModelIndex& index) const {
    const FileItem* const item = m_model.item(index.row());
    if (!item)
        return;
    const Palette& palette = Palette::current();
    if (item->isDirectory) {
        fillRounded(painter, box, pictureRadius, withOpacity(palette.blueFill, 0.1));
        paintSymbol(painter, box, u"folder"_s, symbolSize, palette.blue);
        return;
    }
    const auto* const thumbnail = m_thumbnails.find(item->path);
    if (thumbnail && thumbnail->succeeded()) {
        paintThumbnail(painter, box, imageOf(thumbnail->value(), list().devicePixelRatioF()));
        return;
    }
    fillRounded(painter, box, pictureRadius, withOpacity(palette.control, 0.5));
    if (thumbnail)
        paintSymbol(painter, box, u"photo"_s, symbolSize, palette.secondary);
}

QString FileItemView::tooltipAt(const QRect& area, const QPoint& /*point*/, const QModelIndex& index) const {
    return textIfElided(index.data().toString(), nameFont(true), nameBoxIn(tileIn(area)).width());
}

} // namespace brisklog
