#pragma once

#include "app/projects/screens/ProjectEntryModel.h"
#include "ui/lists/RowDelegate.h"

namespace brisklog {

/// Paints the rows of stored entries: task and earnings, under them start, end and duration. Only the task's
/// name is ever shortened; its tooltip is the whole name then.
class ProjectEntryRowView final : public RowDelegate {
public:
    static constexpr int rowHeight = 50;

    ProjectEntryRowView(const ProjectEntryModel& model, RowList& list) : RowDelegate(list), m_model(model) {}

protected:
    void paintRow(QPainter& painter, const PaintedRow& row) const override;
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override;
    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override;

private:
    const ProjectEntryModel& m_model;
};

} // namespace brisklog
