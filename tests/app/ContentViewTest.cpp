#include "app/ContentView.h"

#include "app/EmptyContent.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

class ContentViewTest : public testing::Test, protected EmptyContent {};

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
