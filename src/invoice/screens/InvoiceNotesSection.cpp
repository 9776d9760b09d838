#include "invoice/screens/InvoiceSections.h"

#include "invoice/screens/InvoiceFormLayout.h"
#include "invoice/screens/SaveNoteScreen.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/Menu.h"
#include "ui/controls/TextArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"
#include "ui/sheets/Sheets.h"

using namespace Qt::StringLiterals;

namespace brisklog {

InvoiceNotesSection::InvoiceNotesSection(TimeTrackingStore& timeStore, InvoiceView& view)
    : m_timeStore(timeStore), m_view(view), m_notes(new TextArea), m_save(new Button(u"Speichern"_s)),
      m_saved(new Button(u"Gespeicherte Notizen"_s)),
      m_delete(new Button(u"Ausgewählte Notiz löschen"_s, Button::Kind::destructive)) {
    const QString title = u"Zusätzliche Hinweise"_s;
    m_notes->setAccessibleName(title);
    m_notes->setFixedHeight(m_notes->sizeHint().height());
    m_save->setSymbol(u"square.and.arrow.down"_s);
    m_saved->setSymbol(u"text.badge.checkmark"_s);
    m_saved->setOpensMenu();
    m_delete->setSymbol(u"trash"_s);
    Column content{m_notes, space(8), folding(Row{m_save, m_saved}.spacing(8), Row{m_delete}, 8)};
    Column{invoiceForm::heading(title), invoiceForm::card(content)}.applyTo(*this);
    connectButtons();
    observe(m_timeStore);
    observe(m_view);
}

void InvoiceNotesSection::connectButtons() {
    m_notes->onEdited([this](const QString& typed) { m_view.additionalNotes = typed.toStdString(); });
    m_save->onClick([this] { m_view.beginSavingNote(); });
    m_saved->onClick([this] { showSavedNotes(); });
    m_delete->onClick([this] { m_view.deleteSelectedNote(); });
}

void InvoiceNotesSection::showSavedNotes() {
    MenuContent content;
    for (const SavedNote& note : m_timeStore.savedNotes.get())
        content.items.push_back({.text = screenText(note.name),
                                 .chosen = [this, id = note.id] { m_view.chooseNote(id); },
                                 .isChecked = note.id == m_view.selectedNoteId.get()});
    showMenu(*m_saved, content);
}

void InvoiceNotesSection::refresh() {
    m_notes->setValue(screenText(*m_view.additionalNotes));
    m_saved->setVisible(!m_timeStore.savedNotes->empty());
    m_delete->setEnabled(m_view.selectedNoteId->has_value());
    refreshSaveNoteSheet();
}

void InvoiceNotesSection::refreshSaveNoteSheet() {
    if (m_view.showingSaveNoteSheet && !m_saveNoteSheet) {
        m_saveNoteSheet = &presentSheet(*this, makeSaveNoteSheet(m_timeStore, m_view));
        m_saveNoteSheet->onClosed([this] {
            m_saveNoteSheet = nullptr;
            m_view.showingSaveNoteSheet = false;
        });
    } else if (!m_view.showingSaveNoteSheet && m_saveNoteSheet) {
        m_saveNoteSheet->dismiss();
    }
}

} // namespace brisklog
