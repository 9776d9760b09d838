#pragma once

#include <optional>
#include <string>

namespace brisklog {

class UserProfile;

/// What an invoice prints about the one who sends it. Empty texts give no line.
struct InvoiceSender {
    std::string fullName;
    /// Street and number.
    std::string address;
    std::string postalCode;
    std::string city;
    std::string phone;
    std::string email;
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
