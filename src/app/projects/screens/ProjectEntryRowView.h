#pragma once

#include "app/projects/screens/ProjectEntryModel.h"
#include "ui/lists/RowDelegate.h"

namespace brisklog {

class RowList;

/// Paints the rows of stored entries: task and earnings, under them start, end and duration. Only the task's
/// name is ever shortened; its tooltip is the whole name then.
class ProjectEntryRowView final : public RowDelegate {
public:
    static constexpr int rowHeight = 50;

    ProjectEntryRowView(const ProjectEntryModel& model, RowList& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    [[nodiscard]] QString tooltipAt(const QRect& item, const QPoint& point,
                                    const QModelIndex& index) const override;
    const ProjectEntryModel& m_model;
    const RowList& m_view;
};

} // namespace brisklog
