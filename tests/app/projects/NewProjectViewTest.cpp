#include "app/projects/ProjectSheetViews.h"
#include "app/projects/ProjectWorkbench.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

class NewProject : public ::testing::Test {
protected:
    void create(const std::string& name, const std::string& rate = "") {
        view.projectName = name;
        view.hourlyRateString = rate;
        view.create();
    }

    [[nodiscard]] std::optional<double> rateOfNewProject() const { return bench.project(1).hourlyRate; }

    ProjectWorkbench bench;
    NewProjectView view{bench.store};
};

TEST_F(NewProject, opensEmptyWithTheKeyboardInTheName) {
    EXPECT_TRUE(view.isPresented);
    EXPECT_EQ(*view.projectName, "");
    EXPECT_EQ(*view.hourlyRateString, "");
    EXPECT_TRUE(view.isProjectNameFocused);
    EXPECT_FALSE(view.isProcessing);
}

TEST_F(NewProject, isAddedSelectedAndWrittenAndTheSheetCloses) {
    create("Web");
    ASSERT_EQ(bench.store.projects->size(), 2U);
    EXPECT_EQ(bench.project(1).name, "Web");
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    EXPECT_EQ(bench.projectSaves(), 1);
    EXPECT_FALSE(view.isPresented);
}

TEST_F(NewProject, nameOfOnlySpacesCreatesNothingAndLeavesTheSheetOpen) {
    for (const char* name : {"", "   ", " \t\r\n ", "\u00A0\u2003"})
        create(name, "85");
    EXPECT_EQ(bench.store.projects->size(), 1U);
    EXPECT_EQ(bench.projectSaves(), 0);
    EXPECT_TRUE(view.isPresented);
    EXPECT_FALSE(view.isProcessing);
}

TEST_F(NewProject, nameLosesTheSpaceAroundItAndKeepsTheSpaceInside) {
    create("\n  Web und  Druck \t");
    EXPECT_EQ(bench.project(1).name, "Web und  Druck");
}

TEST_F(NewProject, rateWithCommaIsRead) {
    create("Web", "85,50");
    EXPECT_EQ(rateOfNewProject(), 85.5);
}

TEST_F(NewProject, rateWithPointIsRead) {
    create("Web", "85.5");
    EXPECT_EQ(rateOfNewProject(), 85.5);
}

TEST_F(NewProject, rateThatIsNoNumberGivesNone) {
    for (const char* rate : {"abc", "", "85 €", "1.234,50", "nan"}) {
        NewProjectView sheet(bench.store);
        sheet.projectName = "Web";
        sheet.hourlyRateString = rate;
        sheet.create();
        EXPECT_EQ(bench.store.projects->back().hourlyRate, std::nullopt) << rate;
    }
    EXPECT_EQ(bench.store.projects->size(), 6U);
}

TEST_F(NewProject, secondPressCreatesNoSecondProject) {
    create("Web");
    view.create();
    EXPECT_EQ(bench.store.projects->size(), 2U);
}

TEST_F(NewProject, cancellingCreatesNothing) {
    view.projectName = "Web";
    view.cancel();
    EXPECT_FALSE(view.isPresented);
    EXPECT_EQ(bench.store.projects->size(), 1U);
    EXPECT_TRUE(bench.files.written.empty());
}

} // namespace
} // namespace brisklog::test
