#pragma once

#include "app/projects/ProjectSettingsView.h"
#include "ui/sheets/SheetWindow.h"

namespace brisklog {

/// The sheet that edits or deletes a project.
class ProjectSettingsScreen final : public SheetWindow {
public:
    ProjectSettingsScreen(TimeTrackingStore& store, int projectIndex);

private:
    [[nodiscard]] QWidget* makeBody();
    void addFooter();
    void confirmDeleting();
    void closeWhenDone();

    ProjectSettingsView m_view;
};

} // namespace brisklog
