#pragma once

#include "overview/DashboardView.h"

#include <QWidget>

namespace brisklog {

class ElidedLabel;
class FigureLabel;

/// One project's working time and, where it has a rate, its earnings.
class ProjectOverviewRowView final : public QWidget {
public:
    explicit ProjectOverviewRowView(QWidget* parent = nullptr);

    void setProject(const ProjectOverviewRow& project);

private:
    ElidedLabel* m_name;
    FigureLabel* m_workingTime;
    QWidget* m_earningsCaption;
    FigureLabel* m_earnings;
};

} // namespace brisklog
