#pragma once

#include "foundation/JsonCoding.h"
#include "foundation/Uuid.h"

#include <array>
#include <string>
#include <string_view>

namespace brisklog {

/// Decides how a customer is addressed.
enum class Gender { male, female, diverse };

/// All values, in the order in which they are offered.
inline constexpr std::array allGenders{Gender::male, Gender::female, Gender::diverse};

/// "Herr", "Frau" or "Divers".
[[nodiscard]] std::string_view salutationWord(Gender gender);

/// The letter in our files: "m", "w" or "d".
[[nodiscard]] std::string_view jsonText(Gender gender);
[[nodiscard]] bool fromJsonText(std::string_view text, Gender& gender);

/// Someone invoices are addressed to. Texts are kept as typed; empty means not given.
struct Customer {
    Uuid id;
    std::string firstName;
    /// The surname.
    std::string name;
    Gender gender = Gender::male;
    std::string company;
    /// Street and number.
    std::string address;
    std::string postalCode;
    std::string city;
    std::string email;
    std::string phone;
    std::string taxId;

    /// "Frau Erika Muster"; empty when both names are.
    [[nodiscard]] std::string formattedSalutation() const;

    /// Salutation, company, street, postal code and city, one per line; empty ones are left out.
    [[nodiscard]] std::string formattedAddress() const;

    /// Postal code and city separated by a space, white space at both ends removed; empty when both are.
    [[nodiscard]] std::string cityLine() const;

    bool operator==(const Customer&) const = default;
};

constexpr auto jsonFields(std::type_identity<Customer>) {
    return std::tuple{json::field<&Customer::id>("id"),
                      json::field<&Customer::firstName>("firstName"),
                      json::field<&Customer::name>("name"),
                      json::field<&Customer::gender>("gender"),
                      json::field<&Customer::company>("company"),
                      json::field<&Customer::address>("address"),
                      json::field<&Customer::postalCode>("postalCode"),
                      json::field<&Customer::city>("city"),
                      json::field<&Customer::email>("email"),
                      json::field<&Customer::phone>("phone"),
                      json::field<&Customer::taxId>("taxId")};
}

} // namespace brisklog
