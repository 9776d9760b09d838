#include "platform/defaults/SqliteUserDefaults.h"
#include "profile/UserProfile.h"
#include "support/FakeClock.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(ProfileOverARealDatabase, whatWasTakenOverIsGoneThereForGood) {
    const TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    const FakeClock clock;
    const auto file = home.configuration() / "defaults.db";
    {
        SqliteUserDefaults defaults(file, clock, log);
        defaults.setValue("profile_city", "Görlitz");
        defaults.setValue("profile_logoWidth", 120.5);
        defaults.setValue("profile_logoPositionX", std::int64_t{7});
        defaults.setValue("profile_taxOffice", "Görlitz");
        defaults.setValue("profile_logoData", Data{std::string(50000, '\xFF')});
        const UserProfile profile({files, defaults, log});
        EXPECT_EQ(profile.city.get(), "Görlitz");
        EXPECT_EQ(profile.logoWidth.get(), 120.5);
        EXPECT_EQ(profile.logoPositionX.get(), 7);
    }
    SqliteUserDefaults defaults(file, clock, log);
    const auto left = defaults.entries();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].key, "profile_taxOffice");
    const UserProfile again({files, defaults, log});
    EXPECT_EQ(again.city.get(), "Görlitz") << "the value is in the file now";
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace brisklog::test
