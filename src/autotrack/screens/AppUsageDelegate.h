#pragma once

#include "ui/lists/RowDelegate.h"

#include <QImage>
#include <unordered_map>

namespace brisklog {

class AppUsageModel;
class Images;

/// Paints an application's icon, name and duration. Icons are decoded once, when their row is first seen.
class AppUsageDelegate final : public RowDelegate {
public:
    AppUsageDelegate(const AppUsageModel& model, const Images& images, RowList& list);

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    /// Null where there is no icon, or none that can be decoded.
    [[nodiscard]] const QImage& iconOf(const QModelIndex& index, qreal devicePixelRatio) const;
    void paintIcon(QPainter& painter, const QRect& area, const QModelIndex& index) const;

    const AppUsageModel& m_model;
    const Images& m_images;
    /// By row, in the resolution of the screen on which they were last painted.
    mutable std::unordered_map<int, QImage> m_icons;
    mutable qreal m_iconResolution = 0;
};

} // namespace brisklog
