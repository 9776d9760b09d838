#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "platform/documents/CairoPdfFacility.h"
#include "profile/UserProfile.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingSavePanel.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brisklog::test {

/// An entry of that length that started on 12 November 2026, 10:00 UTC; unfinished when it has no length.
[[nodiscard]] TimeEntry entryOf(const std::string& taskName, std::optional<TimeInterval> seconds,
                                std::optional<double> hourlyRate = std::nullopt);

[[nodiscard]] Customer customerNamed(const std::string& name, const std::string& company = {});

/// The invoice sheet over a real store in a temporary home, with a record of everything it does to the
/// outside.
class InvoiceSheet {
public:
    /// The store holds one project of that name and rate with these entries.
    InvoiceSheet(std::vector<TimeEntry> entries, std::optional<double> hourlyRate,
                 const std::string& projectName = "Website");

    void addCustomer(const Customer& customer);

    [[nodiscard]] const std::vector<TimeEntry>& projectEntries() const;

    /// The store as the program would find it after a restart.
    [[nodiscard]] TimeTrackingStore reopenedStore();

    [[nodiscard]] DocumentFacilities facilities();

    /// How many invoices have been made so far, according to the log.
    [[nodiscard]] std::size_t generatedInvoices() const;

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    RecordingSavePanel savePanel;
    NotificationCenter notificationCenter;
    CairoPdfFacility pdf;
    UserProfile profile{{files, userDefaults, log}};
    TimeTrackingStore store;
    std::unique_ptr<InvoiceView> view;

private:
    [[nodiscard]] StorePlatform storePlatform() { return {files, userDefaults, clock, runLoop, log}; }
};

} // namespace brisklog::test
