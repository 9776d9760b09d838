#pragma once

#include "core/Customer.h"
#include "core/TimeEntry.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

class Calendar;
class UserProfile;

/// The cells of one line of an invoice's table.
struct InvoiceRow {
    std::string description;
    std::string duration;
    std::string rate;
    std::string amount;
};

/// Every text of an invoice as it is printed, in the order from top to bottom.
struct InvoiceTexts {
    /// An encoded image.
    std::optional<std::string> logo;
    std::vector<std::string> senderLines;
    std::vector<std::string> invoiceLines;
    std::vector<std::string> recipientLines;
    std::string salutation;
    std::vector<InvoiceRow> rows;
    std::string total;
    std::string closing;
    std::string notes;
    /// The tax and bank details at the foot.
    std::vector<std::string> footerLines;
};

/// Logo, sender, closing text with the sender's name, and the lines at the foot.
void addSender(InvoiceTexts& texts, const UserProfile& profile);

/// Number and dates, a fortnight apart, the recipient and how he or she is addressed.
void addLetterhead(InvoiceTexts& texts, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, const Calendar& calendar, Date invoiceDate);

/// A row for each entry and their sum. An entry's own rate goes before the project's; without any it is 0.
void addTable(InvoiceTexts& texts, const std::vector<TimeEntry>& entries, std::optional<double> projectRate,
              Date now);

} // namespace brisklog
