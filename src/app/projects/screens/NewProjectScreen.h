#pragma once

#include "app/projects/NewProjectView.h"
#include "ui/sheets/SheetWindow.h"

namespace brisklog {

/// The sheet that creates a project.
class NewProjectScreen final : public SheetWindow {
public:
    explicit NewProjectScreen(TimeTrackingStore& store);

private:
    [[nodiscard]] QWidget* makeBody();
    void create();

    NewProjectView m_view;
};

} // namespace brisklog
