#include "app/projects/ProjectSheetViews.h"
#include "app/projects/ProjectWorkbench.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

class ProjectSettings : public ::testing::Test {
protected:
    ProjectSettings() {
        bench.store.addProject("Web", 95);
        bench.store.addProject("Druck", std::nullopt);
        bench.files.written.clear();
    }

    ProjectWorkbench bench;
};

TEST_F(ProjectSettings, startWithNameAndRateOfTheProject) {
    const ProjectSettingsView view(bench.store, 1);
    EXPECT_EQ(*view.projectName, "Web");
    EXPECT_EQ(*view.hourlyRateString, "95.00");
    EXPECT_TRUE(view.isPresented);
}

TEST_F(ProjectSettings, missingRateStartsEmpty) {
    EXPECT_EQ(*ProjectSettingsView(bench.store, 2).hourlyRateString, "");
}

TEST_F(ProjectSettings, rateStartsWithTwoDecimalsWhateverItsSize) {
    const auto textOf = [this](double rate) {
        bench.store.updateProject(1, "Web", rate);
        return ProjectSettingsView(bench.store, 1).hourlyRateString.get();
    };
    EXPECT_EQ(textOf(85.5), "85.50");
    EXPECT_EQ(textOf(0), "0.00");
    EXPECT_EQ(textOf(1234.567), "1234.57");
    EXPECT_EQ(textOf(-3), "-3.00");
    EXPECT_EQ(textOf(1.7e308).size(), 312U);
}

TEST_F(ProjectSettings, savingTrimsTheNameReadsTheCommaAndCloses) {
    ProjectSettingsView view(bench.store, 1);
    view.projectName = "  Netz \n";
    view.hourlyRateString = "85,50";
    view.save();
    EXPECT_EQ(bench.project(1).name, "Netz");
    EXPECT_EQ(bench.project(1).hourlyRate, 85.5);
    EXPECT_FALSE(view.isPresented);
    EXPECT_EQ(bench.projectSaves(), 1);
}

TEST_F(ProjectSettings, nameOfOnlySpacesIsSavedEmpty) {
    ProjectSettingsView view(bench.store, 1);
    view.projectName = "  \n";
    view.save();
    EXPECT_EQ(bench.project(1).name, "");
    EXPECT_FALSE(view.isPresented);
    EXPECT_EQ(bench.projectSaves(), 1);
}

TEST_F(ProjectSettings, savingUnchangedKeepsNameRateAndEntries) {
    bench.store.addManualEntry(bench.project(1).id, bench.entry("Entwurf"));
    ProjectSettingsView(bench.store, 1).save();
    EXPECT_EQ(bench.project(1).name, "Web");
    EXPECT_EQ(bench.project(1).hourlyRate, 95);
    EXPECT_EQ(bench.project(1).entries.size(), 1U);
}

TEST_F(ProjectSettings, rateThatIsNoNumberRemovesTheRate) {
    ProjectSettingsView view(bench.store, 1);
    view.hourlyRateString = "abc";
    view.save();
    EXPECT_EQ(bench.project(1).hourlyRate, std::nullopt);
}

TEST_F(ProjectSettings, cancellingChangesNothing) {
    ProjectSettingsView view(bench.store, 1);
    view.projectName = "Netz";
    view.cancel();
    EXPECT_FALSE(view.isPresented);
    EXPECT_EQ(bench.project(1).name, "Web");
    EXPECT_TRUE(bench.files.written.empty());
}

TEST_F(ProjectSettings, deletingRemovesTheProjectAndCloses) {
    ProjectSettingsView view(bench.store, 1);
    view.deleteProject();
    ASSERT_EQ(bench.store.projects->size(), 2U);
    EXPECT_EQ(bench.project(1).name, "Druck");
    EXPECT_FALSE(view.isPresented);
}

TEST_F(ProjectSettings, ofPositionOutOfRangeAreEmptyAndChangeNothing) {
    for (const int index : {-1, 3, 100}) {
        ProjectSettingsView view(bench.store, index);
        EXPECT_EQ(*view.projectName, "");
        EXPECT_EQ(*view.hourlyRateString, "");
        view.save();
        view.deleteProject();
        EXPECT_FALSE(view.isPresented);
    }
    EXPECT_EQ(bench.store.projects->size(), 3U);
    EXPECT_TRUE(bench.files.written.empty());
}

} // namespace
} // namespace brisklog::test
