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
    view = std::make_unique<InvoiceView>(store, 0, platform());
    view->initializeEntryStatuses();
}

InvoicePlatform InvoiceSheet::platform() {
    return {clock,
            savePanel,
            files,
            log,
            notificationCenter,
            [this](const Project& project, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, const std::vector<TimeEntry>& entries,
                   const std::string& additionalNotes) {
                generated.push_back({project.name, customer, invoiceNumber, entries, additionalNotes});
                return "%PDF " + invoiceNumber;
            }};
}

void InvoiceSheet::addCustomer(const Customer& customer) {
    store.addCustomer(customer);
    files.written.clear();
}

const std::vector<TimeEntry>& InvoiceSheet::projectEntries() const { return store.projects->front().entries; }

TimeTrackingStore InvoiceSheet::reopenedStore() { return TimeTrackingStore(storePlatform()); }

} // namespace brisklog::test
