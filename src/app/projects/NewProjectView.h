#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// What the sheet that creates a project decides.
class NewProjectView final : public ObservableObject {
public:
    explicit NewProjectView(TimeTrackingStore& store);

    /// False once the sheet has done its work or was cancelled: it closes then.
    Published<bool> isPresented{*this, true};
    /// As typed.
    Published<std::string> projectName{*this};
    /// As typed, in euros per hour; empty for none.
    Published<std::string> hourlyRateString{*this};
    /// Set while the project is being created, so that a second press cannot create it twice.
    Published<bool> isProcessing{*this, false};
    /// The sheet opens with the keyboard in the name.
    bool isProjectNameFocused = true;

    /// Adds the project and closes. A name of white space alone does nothing; a rate that is no number gives
    /// none.
    void create();

    void cancel();

private:
    TimeTrackingStore& m_store;
};

} // namespace brisklog
