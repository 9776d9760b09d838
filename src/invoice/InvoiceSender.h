#pragma once

#include <optional>
#include <string>

namespace brisklog {

class UserProfile;

/// What invoices and reports print about the one who sends them. Empty texts give no line.
struct InvoiceSender {
    /// On reports alone.
    std::string companyName;
    std::string fullName;
    /// Street and number.
    std::string address;
    std::string postalCode;
    std::string city;
    std::string phone;
    std::string email;
    /// On reports alone.
    std::string website;
    std::string taxId;
    std::string taxOffice;
    std::string vatId;
    std::string bankName;
    std::string iban;
    std::string bic;
    /// An encoded image.
    std::optional<std::string> logoData;

    bool operator==(const InvoiceSender&) const = default;
};

/// What the profile holds at this moment.
[[nodiscard]] InvoiceSender invoiceSender(const UserProfile& profile);

} // namespace brisklog
