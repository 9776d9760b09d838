#include "app/projects/TabStripLayout.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// The width left for tabs beside the buttons of a popover 370 wide.
constexpr int roomForTabs = 288;

TabStripLayout layout(std::vector<int> widths, int current = 0) {
    return layoutTabStrip({.projectWidths = std::move(widths),
                           .autoTrackingWidth = 110,
                           .currentProject = current,
                           .availableWidth = roomForTabs});
}

TabStripLayout layoutWithAutoTrackingSelected(std::vector<int> widths, int current = 0) {
    return layoutTabStrip({.projectWidths = std::move(widths),
                           .autoTrackingWidth = 110,
                           .currentProject = current,
                           .isAutoTrackingSelected = true,
                           .availableWidth = roomForTabs});
}

using Tabs = std::vector<TabPlacement>;

TEST(TabStripLayout, showsAllTabsInFullWhereTheyFit) {
    const auto strip = layout({100, 78});
    EXPECT_EQ(strip.projects, (Tabs{{0, 0, 100}, {1, 100, 78}}));
    EXPECT_EQ(strip.autoTracking, (TabSpan{178, 110}));
    EXPECT_TRUE(strip.showsAutoTrackingLabel);
    EXPECT_FALSE(strip.overflow);
}

TEST(TabStripLayout, cutsTabsAt146) {
    EXPECT_EQ(layout({500}).projects, (Tabs{{0, 0, 146}}));
    EXPECT_TRUE(layout({500}).showsAutoTrackingLabel);
}

TEST(TabStripLayout, shortensAutoTrackingToItsSymbolBeforeAnythingElse) {
    const auto strip = layout({100, 79});
    EXPECT_EQ(strip.projects, (Tabs{{0, 0, 100}, {1, 100, 79}}));
    EXPECT_EQ(strip.autoTracking, (TabSpan{179, 32}));
    EXPECT_FALSE(strip.showsAutoTrackingLabel);
    EXPECT_FALSE(strip.overflow);
    EXPECT_FALSE(layout({128, 128}).overflow);
}

TEST(TabStripLayout, keepsTheLabelOfSelectedAutoTrackingAndOverflowsInstead) {
    const auto strip = layoutWithAutoTrackingSelected({100, 79});
    EXPECT_TRUE(strip.showsAutoTrackingLabel);
    EXPECT_EQ(strip.autoTracking, (TabSpan{178, 110}));
    EXPECT_EQ(strip.overflow, (TabSpan{128, 46}));
    EXPECT_EQ(strip.projects, (Tabs{{0, 0, 100}}));
}

TEST(TabStripLayout, showsTheCurrentTabAndItsShortenedNeighbourBesideTheOverflowButton) {
    const auto strip = layout({200, 200, 200});
    EXPECT_EQ(strip.projects, (Tabs{{0, 0, 126}, {1, 126, 80}}));
    EXPECT_EQ(strip.overflow, (TabSpan{206, 46}));
    EXPECT_EQ(strip.autoTracking, (TabSpan{256, 32}));
}

TEST(TabStripLayout, showsAsManyNeighboursAsFit) {
    const auto strip = layout({60, 50, 40, 90, 90});
    EXPECT_EQ(strip.projects, (Tabs{{0, 0, 60}, {1, 60, 50}, {2, 110, 40}}));
}

TEST(TabStripLayout, leavesOutANeighbourThatWouldGetLessThan72) {
    EXPECT_EQ(layout({100, 36, 200}).projects.size(), 2U);
    EXPECT_EQ(layout({100, 34, 200}).projects, (Tabs{{0, 0, 100}, {1, 100, 34}, {2, 134, 72}}));
}

TEST(TabStripLayout, beginsWithTheCurrentTab) {
    EXPECT_EQ(layout({200, 200, 200, 200}, 2).projects, (Tabs{{2, 0, 126}, {3, 126, 80}}));
}

TEST(TabStripLayout, showsTheTabBeforeTheLastOne) {
    EXPECT_EQ(layout({200, 200, 200}, 2).projects, (Tabs{{1, 0, 80}, {2, 80, 126}}));
}

TEST(TabStripLayout, copesWithoutProjectsAndWithPositionsOutOfRange) {
    EXPECT_TRUE(layout({}).projects.empty());
    EXPECT_FALSE(layout({}).overflow);
    EXPECT_EQ(layout({200, 200, 200}, 99).projects.back().projectIndex, 2);
    EXPECT_EQ(layout({200, 200, 200}, -1).projects.front().projectIndex, 0);
}

TEST(TabStripLayout, neverLetsAnythingOverlapAndAlwaysShowsTheCurrentTab) {
    for (int count = 1; count <= 40; ++count)
        for (int current = 0; current < count; ++current)
            for (const bool isAutoTrackingSelected : {false, true}) {
                std::vector<int> widths(static_cast<std::size_t>(count));
                for (std::size_t index = 0; index < widths.size(); ++index)
                    widths[index] = 30 + static_cast<int>(index * 53 + widths.size() * 17) % 200;
                const auto strip =
                    layoutTabStrip({widths, 110, current, isAutoTrackingSelected, roomForTabs});
                int right = 0;
                for (const TabPlacement& tab : strip.projects) {
                    EXPECT_EQ(tab.x, right);
                    right += tab.width;
                }
                if (strip.overflow) {
                    EXPECT_LE(right, strip.overflow->x);
                    right = strip.overflow->x + strip.overflow->width;
                }
                EXPECT_LE(right, strip.autoTracking.x);
                EXPECT_LE(strip.autoTracking.x + strip.autoTracking.width, roomForTabs);
                EXPECT_TRUE(std::ranges::any_of(
                    strip.projects, [=](const auto& tab) { return tab.projectIndex == current; }));
                EXPECT_EQ(strip.overflow.has_value(), strip.projects.size() != widths.size());
            }
}

} // namespace
} // namespace brisklog::test
