#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Observable.h"
#include "invoice/DocumentExport.h"
#include "invoice/UpdatedInvoiceTemplate.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// One row of the sheet's entry list.
struct InvoiceEntryStatus {
    /// Equal to `entry.id`.
    Uuid id;
    /// A copy of the project's entry.
    TimeEntry entry;
    /// Ticked for this invoice.
    bool isSelected = false;
    /// Invoiced earlier, or by this sheet.
    bool isInvoiced = false;

    bool operator==(const InvoiceEntryStatus&) const = default;
};

/// The figures under the entry list.
struct InvoiceSummary {
    std::string entryCount;
    std::string totalTime;
    /// Absent when the project has no hourly rate, even if entries have their own.
    std::optional<std::string> totalAmount;

    /// Count and amount on one line: "3 Einträge · 427.50 €".
    [[nodiscard]] std::string inShort() const;
};

/// The customer as the picker shows it and the archive keeps it: "Müller - Müller GmbH".
[[nodiscard]] std::string customerChoice(const Customer& customer);

/// The sheet that turns time entries of one project into an invoice.
class InvoiceView final : public ObservableObject {
public:
    /// Stops the program when the store has no project at that index.
    InvoiceView(TimeTrackingStore& timeStore, int projectIndex, DocumentFacilities facilities,
                NotificationCenter& notificationCenter);
    ~InvoiceView();

    /// Filled when the sheet is shown.
    Published<std::vector<InvoiceEntryStatus>> entryStatuses{*this};
    Published<std::optional<Uuid>> selectedCustomerId{*this};
    /// As typed. There is deliberately no numbering: an empty number is printed and archived empty.
    Published<std::string> invoiceNumber{*this};
    Published<std::string> additionalNotes{*this};
    Published<bool> showingSaveNoteSheet{*this, false};
    Published<std::string> noteNameToSave{*this};
    /// The saved note chosen last.
    Published<std::optional<Uuid>> selectedNoteId{*this};
    /// The start of a manual entry.
    Published<Date> manualDate;
    Published<std::string> manualDescription{*this};
    Published<std::int64_t> manualHours{*this, 0};
    Published<std::int64_t> manualMinutes{*this, 0};
    /// As typed.
    Published<std::string> manualRate{*this};

    /// Closes the sheet; set by its presenter. May destroy this object.
    std::function<void()> dismiss;
    /// Makes screen readers say it; set by its presenter, may be empty.
    std::function<void(const std::string&)> announce;

    // What is shown

    [[nodiscard]] const Project& project() const;
    /// "Rechnung erstellen: " and the project's name.
    [[nodiscard]] std::string title() const;
    /// The chosen customer; none when none is chosen or the store no longer has it.
    [[nodiscard]] std::optional<Customer> selectedCustomer() const;
    /// The ticked rows, in list order.
    [[nodiscard]] std::vector<InvoiceEntryStatus> selectedEntries() const;
    /// Seconds, over the ticked rows.
    [[nodiscard]] TimeInterval totalTime() const;
    /// Euros, over the ticked rows; an entry's own rate overrides the project's.
    [[nodiscard]] double totalAmount() const;
    [[nodiscard]] InvoiceSummary summary() const;

    /// Whether something is ticked and, unless there are no customers at all, a customer is chosen.
    [[nodiscard]] bool canCreateInvoice() const { return missingForInvoice().empty(); }

    /// What has to be done before an invoice can be created, as a sentence; empty when nothing has.
    [[nodiscard]] std::string missingForInvoice() const;

    // Entries

    /// Reads the rows from the project; what was ticked stays ticked. Runs each time the sheet is shown.
    void initializeEntryStatuses();
    void toggleEntry(std::size_t row);
    /// Ticks every row, invoiced ones deliberately included.
    void selectAllEntries();
    void deselectAllEntries();
    /// Deletes the row's entry from the project at once, without asking.
    void deleteEntry(std::size_t row);
    /// Sets the manual entry's hours and minutes from what was typed: "1:30" or, in hours, "1,5". Returns
    /// false and changes nothing where that is no duration below 24 hours.
    bool typeManualDuration(std::string_view typed);
    /// Adds the manual entry to the project. The new row is deliberately not ticked.
    void addManualEntry();

    // Notes

    /// Asks for a name to save the notes under; nothing happens while they are blank.
    void beginSavingNote();
    /// Replaces the notes with the saved note's text; nothing happens when there is none with that id.
    void chooseNote(const Uuid& id);
    void deleteSelectedNote();

    // The invoice

    /// Marks the ticked entries as invoiced, asks where to save the document and archives the invoice,
    /// without waiting for the answer: a cancelled panel or a failed write deliberately undoes nothing. The
    /// sheet stays as it is, so a second call bills the same entries again.
    void createInvoice();
    /// Asks where to save the document and writes it there once the user has chosen.
    void exportInvoicePDF();
    /// The document's bytes.
    [[nodiscard]] std::string generateInvoicePDF() const;
    /// Closes the sheet, then requests the customer screens.
    void openCustomerManagement();

private:
    /// Lets a save panel finish after the sheet is gone.
    struct Exports;

    [[nodiscard]] std::vector<Uuid> selectedIds() const;
    [[nodiscard]] std::int64_t manualSeconds() const;
    [[nodiscard]] InvoiceDocument document() const;
    void setAllSelected(bool isSelected);
    void say(const std::string& text) const;

    TimeTrackingStore& m_timeStore;
    const int m_projectIndex;
    const DocumentFacilities m_facilities;
    NotificationCenter& m_notificationCenter;
    std::shared_ptr<Exports> m_exports;
};

} // namespace brisklog
