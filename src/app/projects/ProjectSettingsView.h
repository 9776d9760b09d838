#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// What the sheet that edits or deletes a project decides.
class ProjectSettingsView final : public ObservableObject {
public:
    /// Fills the texts from the project; leaves them empty for an index out of range.
    ProjectSettingsView(TimeTrackingStore& store, int projectIndex);

    /// False once the sheet has done its work or was cancelled: it closes then.
    Published<bool> isPresented{*this, true};
    /// As typed.
    Published<std::string> projectName{*this};
    /// As typed, in euros per hour; empty for none. Starts with two decimals and a decimal point.
    Published<std::string> hourlyRateString{*this};

    /// Gives the project the name, white space at its ends removed, and the rate (none when the text is no
    /// number), and closes.
    void save();

    /// Removes the project with its entries and closes; to be called once the user has confirmed it.
    void deleteProject();

    void cancel();

private:
    TimeTrackingStore& m_store;
    const int m_projectIndex;
};

} // namespace brisklog
