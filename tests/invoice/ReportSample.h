#pragma once

#include "invoice/InvoiceGenerator.h"
#include "invoice/SampleInvoice.h"

#include <string>

namespace brisklog::test {

/// A typical report; each test changes what it is about.
struct ReportSample {
    Project project{.id = {}, .name = "Website-Relaunch", .hourlyRate = 80.0, .entries = billedEntries(3)};
    std::unique_ptr<ProfileInMemory> keptProfile = sampleProfile();
    UserProfile& sender = keptProfile->profile;
    Date now = FakeClock().now();

    /// The document that the real facility draws from all this, with times as in Berlin.
    [[nodiscard]] std::string document() const;
};

/// The sample with that many entries, "Aufgabe 1", "Aufgabe 2", … of an hour each.
[[nodiscard]] ReportSample reportOf(int entries);

/// The same without an hourly rate.
[[nodiscard]] ReportSample reportWithoutRate(int entries);

} // namespace brisklog::test
