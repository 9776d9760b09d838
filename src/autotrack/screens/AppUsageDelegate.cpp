#include "autotrack/screens/AppUsageDelegate.h"

#include "autotrack/screens/AppUsageModel.h"
#include "platform/Images.h"
#include "ui/look/BitmapImage.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rowHeight = 28;
constexpr int radius = 4;
constexpr int iconColumn = 24;
constexpr int iconSize = 16;
constexpr int durationColumn = 100;
/// From the row's edge to its contents, and the margin in which the focus ring has room.
constexpr int padding = 12;
constexpr int margin = 8;

QRect stripe(const QRect& item) { return item.adjusted(margin, 0, -margin, 0); }

QRect content(const QRect& item) { return stripe(item).adjusted(padding, 0, -padding, 0); }

QRect durationArea(const QRect& item, const QString& duration) {
    // A figure is never shortened: it grows to the left.
    const int width = std::max(durationColumn, figureWidth(duration, FontRole::body13));
    const QRect area = content(item);
    return area.adjusted(area.width() - width, 0, 0, 0);
}

QRect nameArea(const QRect& item, const QString& duration) {
    const QRect area = content(item);
    return {area.left() + iconColumn, area.top(),
            durationArea(item, duration).left() - area.left() - iconColumn, area.height()};
}

QImage decoded(const std::optional<SharedData>& png, const Images& images, qreal devicePixelRatio) {
    if (!png)
        return {};
    const int pixels = qRound(iconSize * devicePixelRatio);
    const auto icon = images.decode(png->bytes(), [pixels](PixelSize) { return PixelSize{pixels, pixels}; });
    return icon.failed() ? QImage() : imageOf(icon.value(), devicePixelRatio);
}

} // namespace

AppUsageDelegate::AppUsageDelegate(const AppUsageModel& model, const Images& images, RowList& list)
    : RowDelegate(list), m_model(model), m_images(images) {}

QSize AppUsageDelegate::sizeOf(const QModelIndex& /*index*/) const { return {0, rowHeight}; }

const QImage& AppUsageDelegate::iconOf(const QModelIndex& index, qreal devicePixelRatio) const {
    if (std::exchange(m_iconResolution, devicePixelRatio) != devicePixelRatio)
        m_icons.clear();
    const auto known = m_icons.find(index.row());
    if (known != m_icons.end())
        return known->second;
    return m_icons[index.row()] = decoded(m_model.rowAt(index).iconData, m_images, devicePixelRatio);
}

void AppUsageDelegate::paintIcon(QPainter& painter, const QRect& area, const QModelIndex& index) const {
    const QImage& icon = iconOf(index, painter.device()->devicePixelRatioF());
    const QRect place(area.left(), area.top() + (area.height() - iconSize) / 2, iconSize, iconSize);
    if (icon.isNull())
        paintSymbol(painter, place, u"app.fill"_s, iconSize, Palette::current().secondary);
    else
        painter.drawImage(place, icon);
}

void AppUsageDelegate::paintRow(QPainter& painter, const PaintedRow& row) const {
    const Palette& palette = Palette::current();
    const QString duration = screenText(m_model.rowAt(row.index).durationText());
    if (row.index.row() % 2 == 1)
        fillRounded(painter, stripe(row.area), radius, withOpacity(palette.secondary, 0.05));
    paintIcon(painter, content(row.area), row.index);
    paintText(painter, nameArea(row.area, duration), row.index.data().toString(), FontRole::body13,
              palette.text);
    paintFigures(painter, durationArea(row.area, duration), duration, FontRole::body13, palette.secondary,
                 Qt::AlignRight | Qt::AlignVCenter);
    if (row.showsFocusRing)
        paintFocusRing(painter, stripe(row.area).adjusted(0, 3, 0, -3), radius, palette);
}

QString AppUsageDelegate::tooltipAt(const QRect& area, const QPoint& /*point*/,
                                    const QModelIndex& index) const {
    const QString duration = screenText(m_model.rowAt(index).durationText());
    return textIfElided(index.data().toString(), FontRole::body13, nameArea(area, duration).width());
}

} // namespace brisklog
