#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

#include <QPointer>
#include <optional>

namespace brisklog {

class Button;
class DateTimeField;
class FigureLabel;
class InvoiceEntryList;
class Label;
class LayoutBox;
class Picker;
class SheetWindow;
class Stepper;
class TextArea;
class TextField;

// The sections of the invoice sheet that work on their own, from top to bottom.

/// Chooses the customer the invoice is made out to and shows the address; without customers it leads to the
/// screen that creates them.
class InvoiceCustomerSection final : public Screen {
public:
    InvoiceCustomerSection(TimeTrackingStore& timeStore, InvoiceView& view);

protected:
    void refresh() override;

private:
    [[nodiscard]] QWidget* noCustomers();
    [[nodiscard]] QWidget* customerChoices();
    void choose(int index);
    void refreshChoices();
    [[nodiscard]] int selectedIndex() const;

    TimeTrackingStore& m_timeStore;
    InvoiceView& m_view;
    Picker* m_picker;
    Label* m_address;
    QWidget* m_information;
    QWidget* m_noCustomers;
    QWidget* m_choices;
    /// The revision of the customers the picker shows.
    std::optional<std::uint64_t> m_shownRevision;
};

/// The entries to bill, with their totals.
class InvoiceEntriesSection final : public Screen {
public:
    InvoiceEntriesSection(TimeTrackingStore& timeStore, InvoiceView& view, const Clock& clock);

protected:
    void refresh() override;

private:
    [[nodiscard]] LayoutBox selectionButtons();
    [[nodiscard]] LayoutBox summary();

    InvoiceView& m_view;
    InvoiceEntryList* m_list;
    Label* m_noEntries;
    Button* m_selectAll;
    Button* m_deselectAll;
    FigureLabel* m_entryCount;
    FigureLabel* m_totalTime;
    FigureLabel* m_totalAmount;
};

/// Adds an entry that was not recorded by a timer.
class InvoiceManualEntrySection final : public Screen {
public:
    InvoiceManualEntrySection(TimeTrackingStore& timeStore, InvoiceView& view, const Clock& clock);

protected:
    void refresh() override;

private:
    void connectFields();
    /// Reads a duration typed into either of the two steppers.
    void typeDuration(const QString& typed);
    void add();

    InvoiceView& m_view;
    const Clock& m_clock;
    DateTimeField* m_date;
    TextField* m_description;
    Stepper* m_hours;
    Stepper* m_minutes;
    TextField* m_rate;
    Button* m_add;
};

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
