#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

#include <QPointer>

namespace brisklog {

class Button;
class SheetWindow;
class TextArea;

/// The notes printed on the invoice, and the saved notes to choose from.
class InvoiceNotesSection final : public Screen {
public:
    InvoiceNotesSection(TimeTrackingStore& timeStore, InvoiceView& view);

protected:
    void refresh() override;

private:
    void connectButtons();
    void showSavedNotes();
    /// Opens or closes the sheet that asks for a note's name, according to the view.
    void refreshSaveNoteSheet();

    TimeTrackingStore& m_timeStore;
    InvoiceView& m_view;
    TextArea* m_notes;
    Button* m_save;
    Button* m_saved;
    Button* m_delete;
    QPointer<SheetWindow> m_saveNoteSheet;
};

} // namespace brisklog
