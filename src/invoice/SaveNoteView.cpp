#include "invoice/SaveNoteView.h"

#include "foundation/Text.h"

namespace brisklog {

SaveNoteView::SaveNoteView(TimeTrackingStore& timeStore, const Published<std::string>& additionalNotes,
                           Published<std::string>& noteName, Published<bool>& isPresented)
    : m_timeStore(timeStore), m_additionalNotes(additionalNotes), m_noteName(noteName),
      m_isPresented(isPresented) {}

bool SaveNoteView::canSave() const { return !text::trimmed(m_noteName.get()).empty(); }

void SaveNoteView::save() {
    if (!canSave())
        return;
    m_timeStore.addSavedNote(m_noteName, m_additionalNotes);
    m_isPresented = false;
}

} // namespace brisklog
