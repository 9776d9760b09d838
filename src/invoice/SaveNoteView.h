#pragma once

#include "core/TimeTrackingStore.h"

#include <string>

namespace brisklog {

/// The small sheet that saves the invoice's notes under a name for later invoices. It works on values of the
/// sheet that shows it and has no state of its own.
class SaveNoteView {
public:
    SaveNoteView(TimeTrackingStore& timeStore, const Published<std::string>& additionalNotes,
                 Published<std::string>& noteName, Published<bool>& isPresented);

    [[nodiscard]] const std::string& noteName() const { return m_noteName; }

    void setNoteName(const std::string& name) { m_noteName = name; }

    /// Whether the name is more than white space.
    [[nodiscard]] bool canSave() const;

    /// Saves the notes under the name as typed and closes; nothing happens while the name is blank.
    void save();

    void cancel() { m_isPresented = false; }

private:
    TimeTrackingStore& m_timeStore;
    const Published<std::string>& m_additionalNotes;
    Published<std::string>& m_noteName;
    Published<bool>& m_isPresented;
};

} // namespace brisklog
