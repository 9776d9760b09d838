#pragma once

#include "invoice/UpdatedInvoiceTemplate.h"
#include "support/FakeClock.h"
#include "support/ProfileInMemory.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog::test {

/// Left edge of the invoice's right column, in points.
inline constexpr double rightColumn = 50 + 495 * 0.67;

/// Of the longest countries' accounts, as people write them; wider than a line of 200 points at 10 points.
inline constexpr std::array longIbans{"FR76 3000 6000 0112 3456 7890 189",
                                      "IT60 X054 2811 1010 0000 0123 456",
                                      "PL61 1090 1014 0000 0712 1981 2874", "PT50 0002 0123 1234 5678 9015 4",
                                      "MT84MALT011000012345MTLCAST001S"};

/// A profile with every text that documents print, without a logo.
[[nodiscard]] std::unique_ptr<ProfileInMemory> sampleProfile();
/// Empties those texts.
void clearTexts(UserProfile& profile);
[[nodiscard]] Customer sampleCustomer();

/// An entry of that many minutes; `startMinute` is counted from the reference date.
[[nodiscard]] TimeEntry billedEntry(const std::string& taskName, double startMinute, double minutes,
                                    std::optional<double> hourlyRate = std::nullopt);

/// Consecutive one-hour entries named "Aufgabe 1", "Aufgabe 2", …
[[nodiscard]] std::vector<TimeEntry> billedEntries(int count);

/// The lines "Zeile 1", "Zeile 2", …
[[nodiscard]] std::string numberedLines(int count);

/// A typical invoice; each test changes what it is about.
struct SampleInvoice {
    Project project{.id = {}, .name = "Website-Relaunch", .hourlyRate = 80.0, .entries = {}};
    std::optional<Customer> customer = sampleCustomer();
    std::string invoiceNumber = "RE-2026-0042";
    std::vector<TimeEntry> entries = billedEntries(3);
    std::string notes;
    std::unique_ptr<ProfileInMemory> keptProfile = sampleProfile();
    UserProfile& sender = keptProfile->profile;
    Date now = FakeClock().now();

    /// The document that the real facility draws from all this.
    [[nodiscard]] std::string document() const;
};

} // namespace brisklog::test
