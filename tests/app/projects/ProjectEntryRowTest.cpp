#include "app/projects/ProjectView.h"
#include "app/projects/ProjectWorkbench.h"

#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

class ProjectEntryRowTexts : public ::testing::Test {
protected:
    [[nodiscard]] ProjectEntryRow row(std::optional<double> rate) const {
        return projectEntryRow(entry, rate, FakeClock().calendar(), now);
    }

    /// 15 November 2026, 09:00:00 UTC.
    const Date now = FakeClock().now();
    TimeEntry entry{.id = {},
                    .taskName = "Entwurf",
                    .startTime = now.addingSeconds(-5400),
                    .endTime = now,
                    .projectId = {},
                    .note = {},
                    .hourlyRate = {}};
};

TEST_F(ProjectEntryRowTexts, sayNameTimesDurationAndEarnings) {
    const ProjectEntryRow expected{.taskName = "Entwurf",
                                   .start = "15.11.26, 07:30:00",
                                   .end = "15.11.26, 09:00:00",
                                   .duration = "1\u00A0h 30\u00A0min",
                                   .earnings = "127,50\u00A0€"};
    EXPECT_EQ(row(85), expected);
}

TEST_F(ProjectEntryRowTexts, entryWithoutAnyRateEarnsADash) { EXPECT_EQ(row(std::nullopt).earnings, "--"); }

TEST_F(ProjectEntryRowTexts, ownRateGoesBeforeTheProjects) {
    entry.hourlyRate = 100;
    EXPECT_EQ(row(60).earnings, "150,00\u00A0€");
    EXPECT_EQ(row(std::nullopt).earnings, "150,00\u00A0€");
}

TEST_F(ProjectEntryRowTexts, entryWithoutEndCountsUpToNow) {
    entry.endTime.reset();
    EXPECT_EQ(row(60).end, "--");
    EXPECT_EQ(row(60).duration, "1\u00A0h 30\u00A0min");
    EXPECT_EQ(row(60).earnings, "90,00\u00A0€");
}

TEST_F(ProjectEntryRowTexts, durationThatIsNoFigureHasItsFallback) {
    entry.endTime = Date{std::numeric_limits<double>::infinity()};
    EXPECT_EQ(row(60).duration, "0h 0m");
    EXPECT_EQ(row(60).earnings, "0,00 €");
}

TEST_F(ProjectEntryRowTexts, nameStaysOnOneLine) {
    entry.taskName = "Entwurf\nzweiter\tTeil";
    EXPECT_EQ(row(60).taskName, "Entwurf zweiter Teil");
}

} // namespace
} // namespace brisklog::test
