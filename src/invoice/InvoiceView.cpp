#include "invoice/InvoiceView.h"

#include "foundation/GermanFormat.h"
#include "foundation/NumericInput.h"
#include "foundation/Text.h"
#include "platform/Fatal.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace brisklog {
namespace {

constexpr int minutesPerHour = 60;
constexpr int minutesPerDay = 24 * minutesPerHour;

/// Adds up a figure over every ticked row, in one pass and without copying rows.
template <class Figure>
double sumOverSelected(const std::vector<InvoiceEntryStatus>& statuses, Figure figure) {
    double sum = 0;
    for (const InvoiceEntryStatus& status : statuses)
        if (status.isSelected)
            sum += figure(status.entry);
    return sum;
}

/// The ticks by entry id; the first of several entries with the same id counts.
std::unordered_map<Uuid, bool> ticks(const std::vector<InvoiceEntryStatus>& statuses) {
    std::unordered_map<Uuid, bool> byId;
    byId.reserve(statuses.size());
    for (const InvoiceEntryStatus& status : statuses)
        byId.try_emplace(status.id, status.isSelected);
    return byId;
}

} // namespace

std::string customerChoice(const Customer& customer) {
    return customer.company.empty() ? customer.name : customer.name + " - " + customer.company;
}

std::string InvoiceSummary::inShort() const {
    const std::string count = entryCount + (entryCount == "1" ? " Eintrag" : " Einträge");
    return totalAmount ? count + " · " + *totalAmount : count;
}

const Project& InvoiceView::project() const {
    const std::vector<Project>& projects = m_timeStore.projects;
    if (m_projectIndex < 0 || std::cmp_greater_equal(m_projectIndex, projects.size()))
        stopProgram("invoice sheet without a project: index " + std::to_string(m_projectIndex));
    return projects[static_cast<std::size_t>(m_projectIndex)];
}

std::string InvoiceView::title() const { return "Rechnung erstellen: " + project().name; }

std::optional<Customer> InvoiceView::selectedCustomer() const {
    if (!selectedCustomerId.get())
        return std::nullopt;
    const std::vector<Customer>& customers = m_timeStore.customers;
    const auto found = std::ranges::find(customers, *selectedCustomerId.get(), &Customer::id);
    return found == customers.end() ? std::nullopt : std::optional(*found);
}

std::vector<InvoiceEntryStatus> InvoiceView::selectedEntries() const {
    std::vector<InvoiceEntryStatus> selected;
    std::ranges::copy_if(entryStatuses.get(), std::back_inserter(selected), &InvoiceEntryStatus::isSelected);
    return selected;
}

TimeInterval InvoiceView::totalTime() const {
    return sumOverSelected(entryStatuses,
                           [now = m_facilities.clock.now()](const TimeEntry& e) { return e.duration(now); });
}

double InvoiceView::totalAmount() const {
    return sumOverSelected(entryStatuses, [now = m_facilities.clock.now(), rate = project().hourlyRate](
                                              const TimeEntry& e) { return e.earnings(rate, now); });
}

InvoiceSummary InvoiceView::summary() const {
    const auto count = std::ranges::count_if(entryStatuses.get(), &InvoiceEntryStatus::isSelected);
    InvoiceSummary summary{.entryCount = std::to_string(count),
                           .totalTime = format::duration(totalTime(), "0h 0m"),
                           .totalAmount = std::nullopt};
    // Deliberately not the German currency form of the rows and the document.
    if (project().hourlyRate)
        summary.totalAmount = format::plainMoney(totalAmount(), "0.00 €");
    return summary;
}

std::string InvoiceView::missingForInvoice() const {
    // A customer deleted after having been chosen counts as none.
    const bool isCustomerSettled = selectedCustomer().has_value() || m_timeStore.customers->empty();
    const bool hasEntries = std::ranges::any_of(entryStatuses.get(), &InvoiceEntryStatus::isSelected);
    if (!isCustomerSettled && !hasEntries)
        return "Bitte zuerst einen Kunden und mindestens einen Eintrag auswählen.";
    if (!isCustomerSettled)
        return "Bitte zuerst einen Kunden auswählen.";
    return hasEntries ? "" : "Bitte zuerst mindestens einen Eintrag auswählen.";
}

void InvoiceView::initializeEntryStatuses() {
    const auto ticked = ticks(entryStatuses);
    std::vector<InvoiceEntryStatus> statuses;
    statuses.reserve(project().entries.size());
    for (const TimeEntry& entry : project().entries) {
        const auto before = ticked.find(entry.id);
        statuses.push_back({.id = entry.id,
                            .entry = entry,
                            .isSelected = before != ticked.end() && before->second,
                            .isInvoiced = entry.isInvoiced});
    }
    entryStatuses = std::move(statuses);
}

void InvoiceView::toggleEntry(std::size_t row) {
    if (row >= entryStatuses->size())
        return;
    entryStatuses.mutate([row](std::vector<InvoiceEntryStatus>& statuses) {
        statuses[row].isSelected = !statuses[row].isSelected;
    });
}

void InvoiceView::setAllSelected(bool isSelected) {
    entryStatuses.mutate([isSelected](std::vector<InvoiceEntryStatus>& statuses) {
        for (InvoiceEntryStatus& status : statuses)
            status.isSelected = isSelected;
    });
    say(summary().inShort());
}

void InvoiceView::say(const std::string& text) const {
    if (announce)
        announce(text);
}

void InvoiceView::selectAllEntries() { setAllSelected(true); }

void InvoiceView::deselectAllEntries() { setAllSelected(false); }

void InvoiceView::deleteEntry(std::size_t row) {
    if (row >= entryStatuses->size())
        return;
    m_timeStore.deleteEntry(project().id, entryStatuses.get()[row].id);
    entryStatuses.mutate([row](std::vector<InvoiceEntryStatus>& statuses) {
        statuses.erase(statuses.begin() + static_cast<std::ptrdiff_t>(row));
    });
    say("Eintrag gelöscht");
}

std::int64_t InvoiceView::manualSeconds() const {
    std::int64_t hours = 0;
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;
    const bool overflows = __builtin_mul_overflow(manualHours.get(), 3600, &hours) ||
                           __builtin_mul_overflow(manualMinutes.get(), 60, &minutes) ||
                           __builtin_add_overflow(hours, minutes, &seconds);
    if (overflows)
        stopProgram("duration of a manual entry out of range");
    return seconds;
}

bool InvoiceView::typeManualDuration(std::string_view typed) {
    const auto minutes = parseDuration(typed);
    if (!minutes || *minutes >= minutesPerDay)
        return false;
    manualHours = *minutes / minutesPerHour;
    manualMinutes = *minutes % minutesPerHour;
    return true;
}

void InvoiceView::addManualEntry() {
    TimeEntry entry;
    entry.id = Uuid::generate();
    entry.taskName = manualDescription;
    entry.startTime = manualDate;
    entry.endTime = manualDate->addingSeconds(static_cast<TimeInterval>(manualSeconds()));
    entry.projectId = project().id;
    entry.hourlyRate = parseDecimal(manualRate.get());
    m_timeStore.addManualEntry(project().id, entry);
    entryStatuses.mutate([&entry](std::vector<InvoiceEntryStatus>& statuses) {
        statuses.push_back({.id = entry.id, .entry = entry, .isSelected = false, .isInvoiced = false});
    });
    manualDescription = "";
    manualRate = "";
    manualHours = 0;
    manualMinutes = 0;
    say("Eintrag hinzugefügt");
}

void InvoiceView::beginSavingNote() {
    if (text::trimmed(additionalNotes.get()).empty())
        return;
    noteNameToSave = "";
    showingSaveNoteSheet = true;
}

void InvoiceView::chooseNote(const Uuid& id) {
    const std::vector<SavedNote>& notes = m_timeStore.savedNotes;
    const auto chosen = std::ranges::find(notes, id, &SavedNote::id);
    if (chosen == notes.end())
        return;
    additionalNotes = chosen->content;
    selectedNoteId = id;
}

void InvoiceView::deleteSelectedNote() {
    if (!selectedNoteId.get())
        return;
    m_timeStore.deleteSavedNote(*selectedNoteId.get());
    selectedNoteId = std::nullopt;
    say("Notiz gelöscht");
}

void InvoiceView::openCustomerManagement() {
    // Dismissing may destroy this object: no member is touched afterwards.
    NotificationCenter& notificationCenter = m_notificationCenter;
    if (const auto leave = dismiss)
        leave();
    notificationCenter.post(openCustomerManagementNotification);
}

} // namespace brisklog
