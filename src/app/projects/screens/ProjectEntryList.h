#pragma once

#include "app/projects/screens/ProjectEntryModel.h"

#include <QWidget>

namespace brisklog {

class RowList;

/// The card with all entries of a project. It ends with its last row, or runs down past the window's edge and
/// scrolls.
class ProjectEntryList final : public QWidget {
public:
    ProjectEntryList(const TimeTrackingStore& store, const Clock& clock, QWidget* parent = nullptr);

    /// Costs nothing when nothing was written to the store's projects since and the time zone is the same.
    void showProject(int projectIndex);

    /// What Tab reaches.
    [[nodiscard]] QWidget* tabStop() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QRect cardArea() const;
    void place();

    RowList* m_view;
    ProjectEntryModel* m_model;
};

} // namespace brisklog
