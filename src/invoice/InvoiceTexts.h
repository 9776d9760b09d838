#pragma once

#include "core/Customer.h"
#include "invoice/InvoiceTable.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

class UserProfile;

/// Every text of an invoice as it is printed, from top to bottom.
struct InvoiceTexts {
    /// "Rechnung" and its number.
    std::string name;
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

/// Name, number, invoice date and due date, recipient and salutation.
void addLetterhead(InvoiceTexts& texts, const std::optional<Customer>& customer,
                   const std::string& invoiceNumber, const InvoiceDate& date);

} // namespace brisklog
