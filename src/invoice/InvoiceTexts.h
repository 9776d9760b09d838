#pragma once

#include "core/Customer.h"
#include "core/TimeEntry.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brisklog {

class Calendar;
class UserProfile;

/// An entry as an invoice bills it.
struct BilledEntry {
    const TimeEntry& entry;
    std::optional<double> projectRate;
    /// Entries without an end count up to this.
    Date now;
};

/// Everything that defines a column of an invoice's table.
struct InvoiceColumn {
    /// Texts are left-aligned and may be shortened; numbers are right-aligned and never shortened.
    enum class Content { text, number };

    const char* heading;
    /// Left edge and width as fractions of the table's width.
    double left;
    double width;
    Content content;
    /// The cell's text in an entry's row.
    std::string (*cell)(const BilledEntry& billed);
};

/// From left to right.
[[nodiscard]] std::span<const InvoiceColumn> invoiceColumns();

/// A text for each column.
using InvoiceCells = std::vector<std::string>;

struct InvoiceTable {
    std::vector<InvoiceCells> rows;
    std::string total;
};

/// Every text of an invoice as it is printed, from top to bottom.
struct InvoiceTexts {
    /// An encoded image.
    std::optional<std::string> logo;
    std::vector<std::string> senderLines;
    std::vector<std::string> invoiceLines;
    std::vector<std::string> recipientLines;
    std::string salutation;
    InvoiceTable table;
    std::string closing;
    std::string notes;
    /// The tax and bank details at the foot.
    std::vector<std::string> footerLines;
};

/// Logo, sender, closing text with the sender's name, and the lines at the foot.
void addSender(InvoiceTexts& texts, const UserProfile& profile);

/// Number, invoice date and due date, recipient and salutation.
void addLetterhead(InvoiceTexts& texts, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, const Calendar& calendar, Date invoiceDate);

/// A row for each entry and their sum. An entry's own rate overrides the project's; without either it is 0.
[[nodiscard]] InvoiceTable invoiceTable(const std::vector<TimeEntry>& entries,
                                        std::optional<double> projectRate, Date now);

} // namespace brisklog
