#include "profile/ProfileView.h"

namespace brisklog {

const std::vector<ProfileRow>& ProfileView::contactRows() {
    static const std::vector<ProfileRow> rows{
        {"Firma", {{&UserProfile::companyName, "Ihre Firma GmbH"}}},
        {"Name", {{&UserProfile::fullName, "Max Mustermann"}}},
        {"Adresse", {{&UserProfile::address, "Musterstraße 123"}}},
        {"PLZ & Ort", {{&UserProfile::postalCode, "12345"}, {&UserProfile::city, "Musterstadt"}}},
        {"Land", {{&UserProfile::country, "Deutschland"}}},
        {"Telefon", {{&UserProfile::phone, "+49 123 456789"}}},
        {"E-Mail", {{&UserProfile::email, "post@beispiel.example"}}},
        {"Website", {{&UserProfile::website, "www.beispiel.example"}}},
    };
    return rows;
}

const std::vector<ProfileRow>& ProfileView::taxAndBankRows() {
    static const std::vector<ProfileRow> rows{
        {"Steuernummer", {{&UserProfile::taxId, "123/456/78901"}}},
        {"Finanzamt", {{&UserProfile::taxOffice, "Finanzamt Musterstadt"}}},
        {"USt-IdNr.", {{&UserProfile::vatId, "DE123456789"}}},
        {"Bank", {{&UserProfile::bankName, "Musterbank"}}},
        {"IBAN", {{&UserProfile::iban, "DE89 3704 0044 0532 0130 00"}}},
        {"BIC", {{&UserProfile::bic, "MUSTERDEXXX"}}},
    };
    return rows;
}

} // namespace brisklog
