#include "Layering.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// What each box of src/ stands on. Arrows point downwards only; everything further below is allowed too.
const Arrows arrows{
    {"foundation", {}},
    {"platform", {"foundation"}},
    {"platform/files", {"platform"}},
    {"platform/defaults", {"platform/files"}},
    {"platform/pictures", {"platform"}},
    {"platform/documents", {"platform/pictures"}},
    {"platform/x11", {"platform"}},
    {"platform/bus", {"platform"}},
    {"platform/loop", {"platform"}},
    {"platform/dialogs", {"platform/bus"}},
    {"platform/panel", {"platform/bus"}},
    {"platform/frontmost", {"platform/bus", "platform/x11"}},
    {"core", {"platform"}},
    {"settings", {"platform"}},
    {"settings/screens", {"settings", "ui/sheets"}},
    {"profile", {"core"}},
    {"profile/screens", {"profile", "ui/sheets"}},
    {"invoice", {"core", "profile"}},
    {"invoice/screens", {"invoice", "ui/sheets"}},
    {"autotrack", {"platform"}},
    {"autotrack/screens", {"autotrack", "ui/sheets"}},
    {"overview", {"core", "autotrack"}},
    {"overview/screens", {"overview", "autotrack/screens"}},
    {"ui/look", {"platform"}},
    {"ui/lists", {"ui/look"}},
    {"ui/controls", {"ui/lists"}},
    {"ui/sheets", {"ui/controls"}},
    {"app/projects", {"core", "autotrack"}},
    {"app/projects/screens", {"app/projects", "ui/sheets"}},
    {"app",
     {"app/projects/screens", "settings/screens", "profile/screens", "invoice/screens", "overview/screens"}},
    {"app/main.cpp",
     {"app", "platform/files", "platform/defaults", "platform/pictures", "platform/documents", "platform/x11",
      "platform/bus", "platform/loop", "platform/dialogs", "platform/panel", "platform/frontmost"}},
};

std::vector<SourceLine> ourLines() {
    std::vector<SourceLine> lines;
    for (const std::string& file : sourcesIn("src"))
        std::ranges::move(linesOf(file), std::back_inserter(lines));
    return lines;
}

std::vector<Include> ourIncludes() { return ownIncludes(ourLines()); }

/// The links declared in the build files.
Arrows ourLinks() {
    std::map<std::string, std::string> buildFiles;
    for (const auto& [box, standing] : arrows) {
        std::ifstream file(projectFolder() / "src" / box / "CMakeLists.txt");
        if (file.is_open())
            buildFiles[box] = std::string(std::istreambuf_iterator(file), {});
    }
    return linksIn(buildFiles);
}

TEST(Layering, tableForbidsWhatItShould) {
    EXPECT_FALSE(standsOn(arrows, "foundation", "platform"));
    EXPECT_FALSE(standsOn(arrows, "core", "settings"))
        << "no rounding or other choice of the user may change recorded times";
    EXPECT_FALSE(standsOn(arrows, "invoice", "settings"));
    EXPECT_FALSE(standsOn(arrows, "core", "platform/files"));
    EXPECT_FALSE(standsOn(arrows, "profile", "ui/look"));
    EXPECT_FALSE(standsOn(arrows, "invoice/screens", "profile/screens"));
    EXPECT_FALSE(standsOn(arrows, "ui/sheets", "core"));
    EXPECT_FALSE(standsOn(arrows, "autotrack/screens", "overview"));
    EXPECT_TRUE(standsOn(arrows, "invoice/screens", "foundation"));
}

TEST(Layering, mainAlonePicksImplementations) {
    for (const auto& [box, standing] : arrows) {
        EXPECT_TRUE(standsOn(arrows, "app/main.cpp", box)) << box;
        EXPECT_FALSE(box.starts_with("platform/") && standsOn(arrows, "app", box)) << box;
    }
}

TEST(Layering, everyFolderHasItsPlace) {
    Complaints strays;
    for (const std::string& file : sourcesIn("src"))
        if (!arrows.contains(boxOf(file)))
            strays.push_back(file);
    EXPECT_THAT(strays, IsEmpty());
}

TEST(Layering, nothingStandsOnItself) {
    EXPECT_THAT(circlesIn(arrows), IsEmpty());
    EXPECT_THAT(circlesIn(ourLinks()), IsEmpty());
}

TEST(Layering, includesPointDownwardsOnly) {
    EXPECT_THAT(forbiddenIncludes(arrows, ourIncludes()), IsEmpty());
    EXPECT_GT(ourIncludes().size(), 100U);
}

TEST(Layering, librariesLinkDownwardsOnly) {
    EXPECT_THAT(forbiddenLinks(arrows, ourLinks()), IsEmpty());
    EXPECT_EQ(ourLinks().size(), arrows.size());
}

TEST(Layering, onlyTheBuildFilesOfBoxesLink) {
    for (const char* const file : {"CMakeLists.txt", "src/CMakeLists.txt"}) {
        std::ifstream above(projectFolder() / file);
        ASSERT_TRUE(above.is_open()) << file;
        const std::string text((std::istreambuf_iterator<char>(above)), {});
        EXPECT_THAT(text, Not(HasSubstr("target_link_libraries"))) << file;
        EXPECT_THAT(text, Not(HasSubstr("brisklog_box("))) << file;
    }
}

TEST(Layering, whatIsIncludedIsLinked) {
    EXPECT_THAT(forbiddenIncludes(ourLinks(), ourIncludes()), IsEmpty());
}

TEST(Layering, whatIsLinkedIsIncluded) {
    EXPECT_THAT(unusedArrows(ourLinks(), ourIncludes()), IsEmpty());
    EXPECT_THAT(unusedArrows(arrows, ourIncludes()), IsEmpty());
}

TEST(Layering, widgetsAreKnownToScreensAndTheAppAlone) {
    const fs::path headers = BRISKLOG_WIDGETS_HEADERS;
    ASSERT_TRUE(fs::exists(headers / "QWidget"));
    const auto isWidgets = [&headers](const std::string& header) {
        return header.starts_with("QtWidgets") || (header.starts_with("Q") && fs::exists(headers / header));
    };
    EXPECT_THAT(widgetsWhereNothingIsShown(foreignIncludes(ourLines()), isWidgets), IsEmpty());
}

TEST(Layering, processWideObjectsAreMadeInTheAppAlone) {
    EXPECT_THAT(processWideObjectsMadeIn(ourLines()), IsEmpty());
}

TEST(Layering, noFileIsLongerThanFourHundredLines) {
    Complaints tooLong;
    for (const char* const folder : {"src", "tests", "bench", "tools"})
        for (const std::string& file : sourcesIn(folder))
            if (const auto length = linesOf(file).size(); length > 400)
                tooLong.push_back(file + ": " + std::to_string(length));
    EXPECT_THAT(tooLong, IsEmpty());
}

} // namespace
} // namespace brisklog::test
