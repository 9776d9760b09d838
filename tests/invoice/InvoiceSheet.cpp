#include "invoice/InvoiceSheet.h"
#include "support/WritableStore.h"

namespace brisklog::test {
namespace {

/// 12 November 2026, 10:00:00 UTC.
constexpr Date startOfEntries{816170400};

} // namespace

TimeEntry entryOf(const std::string& taskName, std::optional<TimeInterval> seconds,
                  std::optional<double> hourlyRate) {
    TimeEntry entry;
    entry.id = Uuid::generate();
    entry.taskName = taskName;
    entry.startTime = startOfEntries;
    if (seconds)
        entry.endTime = startOfEntries.addingSeconds(*seconds);
    entry.hourlyRate = hourlyRate;
    return entry;
}

Customer customerNamed(const std::string& name, const std::string& company) {
    Customer customer;
    customer.id = Uuid::generate();
    customer.name = name;
    customer.company = company;
    return customer;
}

InvoiceSheet::InvoiceSheet(std::vector<TimeEntry> entries, std::optional<double> hourlyRate,
                           const std::string& projectName)
    : store(storePlatform()) {
    writable(store.projects) = {{.id = Uuid::generate(),
                                 .name = projectName,
                                 .hourlyRate = hourlyRate,
                                 .entries = std::move(entries)}};
    store.saveProjects();
    files.written.clear();
    view = std::make_unique<InvoiceView>(store, 0, facilities(), notificationCenter);
    view->initializeEntryStatuses();
}

DocumentFacilities InvoiceSheet::facilities() {
    return {.pdf = pdf,
            .clock = clock,
            .savePanel = savePanel,
            .files = files,
            .log = log,
            .profile = [this]() -> const UserProfile& { return profile; }};
}

std::size_t InvoiceSheet::generatedInvoices() const {
    return log.countStartingWith("Generiere Rechnung mit UpdatedInvoiceTemplate");
}

void InvoiceSheet::addCustomer(const Customer& customer) {
    store.addCustomer(customer);
    files.written.clear();
}

const std::vector<TimeEntry>& InvoiceSheet::projectEntries() const { return store.projects->front().entries; }

TimeTrackingStore InvoiceSheet::reopenedStore() { return TimeTrackingStore(storePlatform()); }

} // namespace brisklog::test
