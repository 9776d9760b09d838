#include "platform/defaults/SqliteUserDefaults.h"
#include "settings/AppSettings.h"
#include "support/FakeClock.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(SettingsOverARealDatabase, whatWasTakenOverIsGoneThereForGood) {
    const TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    const FakeClock clock;
    const auto file = home.configuration() / "defaults.db";
    {
        SqliteUserDefaults defaults(file, clock, log);
        defaults.setValue("launchAtStartup", true);
        defaults.setValue("openLastProject", std::int64_t{0});
        defaults.setValue("invoiceRounding", "Auf nächste Einheit runden");
        defaults.setValue("timeRounding", "20 Minuten");
        const AppSettings settings({files, defaults, log});
        EXPECT_TRUE(settings.launchAtStartup);
        EXPECT_FALSE(settings.openLastProject);
        EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::roundNearest);
    }
    SqliteUserDefaults defaults(file, clock, log);
    const auto left = defaults.entries();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].key, "timeRounding");
    const AppSettings again({files, defaults, log});
    EXPECT_TRUE(again.launchAtStartup) << "the value is in the file now";
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace brisklog::test
