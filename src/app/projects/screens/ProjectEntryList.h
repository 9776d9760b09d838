#pragma once

#include "app/projects/screens/ProjectEntryModel.h"

#include <QWidget>

namespace brisklog {

class RowList;

/// The card with all entries of a project. It ends below its last row, or extends past the window's edge and
/// scrolls.
class ProjectEntryList final : public QWidget {
public:
    ProjectEntryList(const TimeTrackingStore& store, const Clock& clock, QWidget* parent = nullptr);

    /// Does nothing if neither the store's projects nor the time zone have changed since.
    void showProject(int projectIndex);

    /// The list's tab stop.
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
