#include "Layering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

/// A made-up house: each box stands on the one before it.
const Arrows house{{"ground", {}}, {"wall", {"ground"}}, {"roof", {"wall"}}};

std::vector<Include> including(const std::string& file, const std::string& header) {
    return ownIncludes({{file, 1, "#pragma once"}, {file, 3, "#include \"" + header + "\""}});
}

TEST(LayeringRules, anIncludeThatRunsUpwardsIsFound) {
    EXPECT_THAT(forbiddenIncludes(house, including("src/ground/Stone.h", "roof/Tile.h")),
                ElementsAre("src/ground/Stone.h:3: #include \"roof/Tile.h\""));
}

TEST(LayeringRules, anIncludeOfABoxThatStandsBesideIsFound) {
    Arrows withShed = house;
    withShed["shed"] = {"ground"};
    EXPECT_THAT(forbiddenIncludes(withShed, including("src/shed/Door.cpp", "wall/Brick.h")),
                ElementsAre("src/shed/Door.cpp:3: #include \"wall/Brick.h\""));
}

TEST(LayeringRules, includesOfTheOwnBoxAndOfAllBelowAreFine) {
    EXPECT_THAT(forbiddenIncludes(house, including("src/roof/Tile.cpp", "roof/Tile.h")), IsEmpty());
    EXPECT_THAT(forbiddenIncludes(house, including("src/roof/Tile.cpp", "wall/Brick.h")), IsEmpty());
    EXPECT_THAT(forbiddenIncludes(house, including("src/roof/Tile.cpp", "ground/Stone.h")), IsEmpty());
}

TEST(LayeringRules, aFolderThatNobodyNamedIsNoPartOfTheBoxAroundIt) {
    EXPECT_THAT(forbiddenIncludes(house, including("src/roof/attic/Beam.h", "wall/Brick.h")),
                ElementsAre("src/roof/attic/Beam.h:3: #include \"wall/Brick.h\""));
}

TEST(LayeringRules, mainIsABoxOfItsOwn) {
    const Arrows withMain{{"app", {}}, {"platform/x11", {}}, {"app/main.cpp", {"app", "platform/x11"}}};
    EXPECT_THAT(forbiddenIncludes(withMain, including("src/app/main.cpp", "platform/x11/Server.h")),
                IsEmpty());
    EXPECT_THAT(forbiddenIncludes(withMain, including("src/app/Window.cpp", "platform/x11/Server.h")),
                ElementsAre("src/app/Window.cpp:3: #include \"platform/x11/Server.h\""));
}

TEST(LayeringRules, theBuildFilesLinksAreRead) {
    const Arrows links =
        linksIn({{"low", "brisklog_box(ground Qt6::Core)\n"},
                 {"low/wall", "# not brisklog_box(wall brisklog-window)\n"
                              "brisklog_box(wall brisklog-ground\n    brisklog-glass)\n"
                              "target_link_libraries(brisklog-wall PRIVATE brisklog-paint)\n"},
                 {"app", "brisklog_box(app)\n"
                         "target_link_libraries(brisklog PRIVATE brisklog-app # the roof\n"
                         "    brisklog-wall)\n"}});
    EXPECT_THAT(links, UnorderedElementsAre(
                           Pair("low", IsEmpty()),
                           Pair("low/wall", ElementsAre("low", "brisklog-glass", "brisklog-paint")),
                           Pair("app", IsEmpty()), Pair("app/main.cpp", ElementsAre("app", "low/wall"))));
}

TEST(LayeringRules, aLinkThatRunsUpwardsIsFound) {
    const Arrows links = linksIn({{"ground", "brisklog_box(ground brisklog-roof)"},
                                  {"wall", "brisklog_box(wall brisklog-ground)"},
                                  {"roof", "brisklog_box(roof brisklog-wall brisklog-ground)"}});
    EXPECT_THAT(forbiddenLinks(house, links), ElementsAre("ground links roof"));
}

TEST(LayeringRules, aLinkToAnUnknownLibraryIsFound) {
    EXPECT_THAT(forbiddenLinks(house, linksIn({{"wall", "brisklog_box(wall brisklog-gruond)"}})),
                ElementsAre("wall links brisklog-gruond"));
}

TEST(LayeringRules, aCircleIsFound) {
    EXPECT_THAT(circlesIn(house), IsEmpty());
    Arrows withStairs = house;
    withStairs["ground"] = {"roof"};
    EXPECT_THAT(circlesIn(withStairs), UnorderedElementsAre("ground is both above and below roof",
                                                            "wall is both above and below ground",
                                                            "roof is both above and below wall"));
}

TEST(LayeringRules, aLinkThatNoFileUsesIsFound) {
    const Arrows links = linksIn({{"ground", "brisklog_box(ground)"},
                                  {"wall", "brisklog_box(wall brisklog-ground)"},
                                  {"roof", "brisklog_box(roof brisklog-wall brisklog-ground)"}});
    std::vector<Include> includes = including("src/wall/Brick.h", "ground/Stone.h");
    std::ranges::move(including("src/roof/Tile.h", "wall/Brick.h"), std::back_inserter(includes));
    EXPECT_THAT(unusedArrows(links, includes), ElementsAre("roof includes nothing of ground"));
}

TEST(LayeringRules, anIncludeOfABoxThatIsNotLinkedIsFound) {
    const Arrows links = linksIn({{"ground", "brisklog_box(ground)"},
                                  {"wall", "brisklog_box(wall)"},
                                  {"roof", "brisklog_box(roof brisklog-wall)"}});
    EXPECT_THAT(forbiddenIncludes(links, including("src/roof/Tile.h", "wall/Brick.h")), IsEmpty());
    EXPECT_THAT(forbiddenIncludes(links, including("src/roof/Tile.h", "ground/Stone.h")),
                ElementsAre("src/roof/Tile.h:3: #include \"ground/Stone.h\""));
}

TEST(LayeringRules, widgetsAreFoundWhereNothingIsShown) {
    const auto widgetsIn = [](const std::string& file) {
        return widgetsWhereNothingIsShown(
            foreignIncludes({{file, 5, "#include <QString>"}, {file, 6, "#include <QWidget>"}}),
            [](const std::string& header) { return header == "QWidget"; });
    };
    for (const char* const file :
         {"src/core/Project.h", "src/app/projects/TabStrip.h", "src/platform/loop/Loop.cpp"})
        EXPECT_THAT(widgetsIn(file), ElementsAre(std::string(file) + ":6: #include <QWidget>"));
    for (const char* const file :
         {"src/app/main.cpp", "src/app/Window.h", "src/ui/look/Label.h", "src/core/screens/Screen.h",
          "src/app/projects/screens/Tabs.h", "src/platform/panel/Icon.h", "src/platform/dialogs/Dialog.h"})
        EXPECT_THAT(widgetsIn(file), IsEmpty()) << file;
}

TEST(LayeringRules, processWideObjectsAreFoundWhereTheyAreMade) {
    for (const char* const line :
         {"    static AppSettings shared{platform};", "auto own = std::make_unique<UserProfile>(platform);",
          "std::optional<AppSettings> m_settings;", "save(UserProfile(platform));"})
        EXPECT_THAT(processWideObjectsMadeIn({{"src/invoice/Sheet.cpp", 7, line}}),
                    ElementsAre(std::string("src/invoice/Sheet.cpp:7: ") + line));
    for (const char* const line :
         {"    AppSettings& m_settings;", "class UserProfile;", "const UserProfile& profile,",
          "AppSettings::AppSettings(const SettingsPlatform& platform)", "class AppSettings final {",
          "    explicit UserProfile(const ProfileServices& services);",
          "constexpr auto storedProperties(std::type_identity<UserProfile>) {",
          "/// The AppSettings one is given."})
        EXPECT_THAT(processWideObjectsMadeIn({{"src/invoice/Sheet.cpp", 7, line}}), IsEmpty()) << line;
    EXPECT_THAT(processWideObjectsMadeIn({{"src/app/Roof.h", 7, "AppSettings m_settings;"}}), IsEmpty());
}

} // namespace
} // namespace brisklog::test
