#include "app/ContentView.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

class ContentViewTest : public testing::Test {
protected:
    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    AppSettings settings{{.files = files, .userDefaults = userDefaults, .log = log}};
    ContentView content{
        projectsSection,
        settings,
        {.files = files, .userDefaults = userDefaults, .clock = clock, .runLoop = runLoop, .log = log}};
};

TEST_F(ContentViewTest, startsWithTheProjectsSection) { EXPECT_EQ(content.shownSection(), 1); }

TEST_F(ContentViewTest, showsTheSectionThatWasChosen) {
    content.selectedSection = 3;
    EXPECT_EQ(content.shownSection(), 3);
}

TEST_F(ContentViewTest, showsTheProjectsForAValueThatNamesNoSection) {
    content.selectedSection = 7;
    EXPECT_EQ(content.shownSection(), 1);
    content.selectedSection = -1;
    EXPECT_EQ(content.shownSection(), 1);
}

TEST_F(ContentViewTest, isDrawnInTheSchemeOfTheSettings) {
    EXPECT_EQ(content.colorScheme(), ColorScheme::light);
    settings.colorScheme = ColorSchemeOption::dark;
    EXPECT_EQ(content.colorScheme(), ColorScheme::dark);
}

TEST_F(ContentViewTest, changingTheSectionLeavesTheRunningTimersAlone) {
    content.timeStore.startTracking("Entwurf");
    content.selectedSection = 0;
    EXPECT_EQ(content.timeStore.activeEntries->size(), 1U);
}

} // namespace
} // namespace brisklog::test
