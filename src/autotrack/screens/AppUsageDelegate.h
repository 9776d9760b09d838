#pragma once

#include "ui/lists/RowDelegate.h"

#include <QImage>
#include <unordered_map>

namespace brisklog {

class AppUsageModel;
class Images;
class RowList;

/// Paints an application's icon, name and duration. Icons are decoded once, when their row is first seen.
class AppUsageDelegate final : public RowDelegate {
public:
    AppUsageDelegate(const AppUsageModel& model, const Images& images, RowList& list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    /// Null where there is no icon, or none that can be decoded.
    [[nodiscard]] const QImage& iconOf(const QModelIndex& index, qreal devicePixelRatio) const;
    void paintIcon(QPainter& painter, const QRect& area, const QModelIndex& index) const;

    const AppUsageModel& m_model;
    const Images& m_images;
    RowList& m_list;
    /// By row, in the resolution of the screen on which they were last painted.
    mutable std::unordered_map<int, QImage> m_icons;
    mutable qreal m_iconResolution = 0;
};

} // namespace brisklog
