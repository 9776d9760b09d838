#include "invoice/InvoiceSender.h"

#include "profile/UserProfile.h"

namespace brisklog {

InvoiceSender invoiceSender(const UserProfile& profile) {
    return {.companyName = profile.companyName,
            .fullName = profile.fullName,
            .address = profile.address,
            .postalCode = profile.postalCode,
            .city = profile.city,
            .phone = profile.phone,
            .email = profile.email,
            .website = profile.website,
            .taxId = profile.taxId,
            .taxOffice = profile.taxOffice,
            .vatId = profile.vatId,
            .bankName = profile.bankName,
            .iban = profile.iban,
            .bic = profile.bic,
            .logoData = profile.logoData};
}

} // namespace brisklog
