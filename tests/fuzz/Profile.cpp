// profile.json.

#include "LoadedFile.h"

#include "profile/UserProfile.h"

#include <tuple>

namespace brisklog::fuzz {
namespace {

struct LoadedProfile {
    static auto valuesFrom(Files& files, UserDefaults& defaults, Log& log) {
        const UserProfile profile({.files = files, .userDefaults = defaults, .log = log});
        return std::tuple(profile.companyName.get(), profile.fullName.get(), profile.address.get(),
                          profile.postalCode.get(), profile.city.get(), profile.country.get(),
                          profile.phone.get(), profile.email.get(), profile.website.get(),
                          profile.taxId.get(), profile.vatId.get(), profile.taxOffice.get(),
                          profile.bankName.get(), profile.iban.get(), profile.bic.get(),
                          profile.logoPositionX.get(), profile.logoPositionY.get(), profile.logoWidth.get(),
                          profile.logoHeight.get());
    }
};

} // namespace

void tryInput(std::string_view bytes) { tryFile<LoadedProfile>("/data/Pennavo/profile.json", bytes); }

} // namespace brisklog::fuzz
