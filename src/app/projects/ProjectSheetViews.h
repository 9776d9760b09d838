#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// The logic of the sheet that creates a project.
class NewProjectView final : public ObservableObject {
public:
    explicit NewProjectView(TimeTrackingStore& store);

    /// Becomes false once the sheet is done or cancelled; it then closes.
    Published<bool> isPresented{*this, true};
    /// As typed.
    Published<std::string> projectName{*this};
    /// As typed, in euros per hour; empty for none.
    Published<std::string> hourlyRateString{*this};
    /// Set while the project is being created, so that a second press cannot create it twice.
    Published<bool> isProcessing{*this, false};
    /// The sheet opens with the focus in the name.
    bool isProjectNameFocused = true;

    /// Adds the project and closes. Nothing happens while the name is blank; a rate that is not a number
    /// counts as none.
    void create();

    void cancel();

private:
    TimeTrackingStore& m_store;
};

/// The logic of the sheet that edits or deletes a project.
class ProjectSettingsView final : public ObservableObject {
public:
    /// Fills the texts from the project; they stay empty for an index out of range.
    ProjectSettingsView(TimeTrackingStore& store, int projectIndex);

    /// Becomes false once the sheet is done or cancelled; it then closes.
    Published<bool> isPresented{*this, true};
    /// As typed.
    Published<std::string> projectName{*this};
    /// As typed, in euros per hour; empty for none. Initially shown with two decimals and a decimal point.
    Published<std::string> hourlyRateString{*this};

    /// Sets the project's name, trimmed, and its rate (none when the text is not a number), and closes.
    void save();

    /// Removes the project with its entries and closes; call once the user has confirmed.
    void deleteProject();

    void cancel();

private:
    TimeTrackingStore& m_store;
    const int m_projectIndex;
};

} // namespace brisklog
