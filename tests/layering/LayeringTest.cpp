#include "SourceTree.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::IsEmpty;
using Complaints = std::vector<std::string>;

/// What each folder of src/ stands on. Arrows point downwards only; what stands below that is open too.
const std::map<std::string, std::vector<std::string>> arrows{
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
     {"app/projects/screens", "settings/screens", "profile/screens", "invoice/screens", "overview/screens",
      "platform/files", "platform/defaults", "platform/documents", "platform/loop", "platform/dialogs",
      "platform/panel", "platform/frontmost"}},
};

/// The folder of the table in which a file below src/ lies; empty when it lies in none.
std::string boxOf(const std::string& file) {
    fs::path folder = fs::path(file).parent_path();
    while (!folder.empty() && !arrows.contains(folder))
        folder = folder.parent_path();
    return folder;
}

void addReachable(const std::string& box, std::set<std::string>& reached) {
    if (reached.insert(box).second)
        for (const std::string& below : arrows.at(box))
            addReachable(below, reached);
}

bool mayInclude(const std::string& box, const std::string& included) {
    std::set<std::string> reached;
    addReachable(box, reached);
    return reached.contains(included);
}

std::string withoutSrc(const std::string& file) { return file.substr(std::string("src/").size()); }

TEST(Layering, tableHasNoCycles) {
    for (const auto& [box, standsOn] : arrows)
        for (const std::string& below : standsOn)
            EXPECT_FALSE(mayInclude(below, box)) << below << " would stand on " << box;
}

TEST(Layering, tableForbidsWhatItShould) {
    EXPECT_FALSE(mayInclude("foundation", "platform"));
    EXPECT_FALSE(mayInclude("core", "settings"))
        << "no rounding, no choice of the user changes recorded times";
    EXPECT_FALSE(mayInclude("invoice", "settings"));
    EXPECT_FALSE(mayInclude("core", "platform/files"));
    EXPECT_FALSE(mayInclude("profile", "ui/look"));
    EXPECT_FALSE(mayInclude("invoice/screens", "profile/screens"));
    EXPECT_FALSE(mayInclude("ui/sheets", "core"));
    EXPECT_FALSE(mayInclude("autotrack/screens", "overview"));
    EXPECT_TRUE(mayInclude("invoice/screens", "foundation"));
    EXPECT_TRUE(mayInclude("app", "platform/files"));
}

TEST(Layering, everyFolderHasItsPlace) {
    Complaints strays;
    for (const std::string& file : sourcesIn("src"))
        if (boxOf(withoutSrc(file)) != fs::path(withoutSrc(file)).parent_path())
            strays.push_back(file);
    EXPECT_THAT(strays, IsEmpty());
}

TEST(Layering, includesPointDownwardsOnly) {
    Complaints wrong;
    std::size_t checked = 0;
    for (const std::string& file : sourcesIn("src"))
        for (const SourceLine& line : linesOf(file)) {
            const std::string included = includedBetween('"', '"', line.text);
            if (included.empty())
                continue;
            ++checked;
            if (!mayInclude(boxOf(withoutSrc(file)), boxOf(included)))
                wrong.push_back(line.place());
        }
    EXPECT_THAT(wrong, IsEmpty());
    EXPECT_GT(checked, 100U);
}

/// The boxes that a folder's build file links, as folders.
std::map<std::string, std::vector<std::string>> linkedBoxes() {
    std::map<std::string, std::string> folderOfName;
    std::map<std::string, std::vector<std::string>> linkedNames;
    for (const auto& [box, standsOn] : arrows) {
        std::ifstream stream(projectFolder() / "src" / box / "CMakeLists.txt");
        for (std::string line; std::getline(stream, line);) {
            if (!line.starts_with("brisklog_box("))
                continue;
            std::ranges::replace_if(
                line, [](char c) { return c == '(' || c == ')'; }, ' ');
            std::istringstream words(line);
            std::string word;
            words >> word >> word;
            folderOfName["brisklog-" + word] = box;
            while (words >> word)
                if (word.starts_with("brisklog-"))
                    linkedNames[box].push_back(word);
        }
    }
    for (auto& [box, names] : linkedNames)
        std::ranges::transform(names, names.begin(), [&](const auto& name) { return folderOfName[name]; });
    return linkedNames;
}

TEST(Layering, librariesLinkDownwardsOnly) {
    Complaints wrong;
    const auto linked = linkedBoxes();
    for (const auto& [box, libraries] : linked)
        for (const std::string& library : libraries)
            if (!mayInclude(box, library))
                wrong.push_back((box + " links ").append(library));
    EXPECT_THAT(wrong, IsEmpty());
    EXPECT_GT(linked.size(), 4U);
}

bool mayShowWidgets(const std::string& file) {
    return file.find("/screens/") != file.npos || file.starts_with("src/app/") ||
           file.starts_with("src/ui/") || file.starts_with("src/platform/dialogs/") ||
           file.starts_with("src/platform/panel/");
}

TEST(Layering, widgetsAreKnownToScreensAndTheAppAlone) {
    const fs::path headers = BRISKLOG_WIDGETS_HEADERS;
    ASSERT_TRUE(fs::exists(headers / "QWidget"));
    Complaints wrong;
    for (const std::string& file : sourcesIn("src"))
        for (const SourceLine& line : linesOf(file)) {
            const std::string included = includedBetween('<', '>', line.text);
            const bool isWidgets = included.starts_with("QtWidgets") ||
                                   (included.starts_with("Q") && fs::exists(headers / included));
            if (isWidgets && !mayShowWidgets(file))
                wrong.push_back(line.place());
        }
    EXPECT_THAT(wrong, IsEmpty());
}

TEST(Layering, processWideObjectsAreNamedInTheAppAlone) {
    Complaints wrong;
    for (const std::string& file : sourcesIn("src")) {
        if (file.starts_with("src/app/"))
            continue;
        for (const SourceLine& line : linesOf(file))
            for (const char* const name : {"SharedObjects", "AppSettings::shared", "UserProfile::shared"})
                if (line.text.find(name) != line.text.npos)
                    wrong.push_back(line.place());
    }
    EXPECT_THAT(wrong, IsEmpty());
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
