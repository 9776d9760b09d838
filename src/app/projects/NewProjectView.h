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

} // namespace brisklog
