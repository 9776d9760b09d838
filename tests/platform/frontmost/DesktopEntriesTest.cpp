#include "platform/frontmost/DesktopEntries.h"
#include "support/TemporaryHome.h"

#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

class DesktopEntriesTest : public ::testing::Test {
protected:
    void install(const fs::path& file, const std::string& lines) const {
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "[Desktop Entry]\nType=Application\n" << lines << '\n';
    }

    [[nodiscard]] std::string idFor(const std::vector<std::string>& names, const std::string& program = "") {
        const auto* const entry = entries.find({.names = names, .windowClass = "", .program = program});
        return entry != nullptr ? entry->id : "none";
    }

    TemporaryHome home;
    fs::path own = home.path() / "own";
    fs::path system = home.path() / "system";
    DesktopEntries entries{{own, system}};
};

TEST_F(DesktopEntriesTest, germanNameIsPreferredAndTheMainGroupAloneIsRead) {
    const auto entry =
        parseDesktopEntry("files", "# a comment\n[Desktop Entry]\nType=Application\nName=Files\n"
                                   "Name[de]=Dateien\nName[fr]=Fichiers\nIcon=folder\n"
                                   "Exec=/usr/bin/files %U\n[Desktop Action new]\nName=New\n");
    EXPECT_EQ(entry, (DesktopEntry{.id = "files",
                                   .name = "Dateien",
                                   .icon = "folder",
                                   .startupWindowClass = "",
                                   .program = "files",
                                   .isShown = true}));
}

TEST_F(DesktopEntriesTest, whatIsNoApplicationIsLeftOut) {
    EXPECT_EQ(parseDesktopEntry("a", "[Desktop Entry]\nType=Link\nName=A\n"), std::nullopt);
    EXPECT_EQ(parseDesktopEntry("a", "[Desktop Entry]\nType=Application\n"), std::nullopt);
    EXPECT_EQ(parseDesktopEntry("a", "[Desktop Entry]\nType=Application\nName=A\nHidden=true\n"),
              std::nullopt);
    EXPECT_EQ(parseDesktopEntry("a", ""), std::nullopt);
}

TEST_F(DesktopEntriesTest, controlCharactersInTheNameBecomeBlanks) {
    const auto entry = parseDesktopEntry("a", "[Desktop Entry]\nType=Application\nName=One\\nTwo\x07!\n");
    EXPECT_EQ(entry.value().name, "One Two !");
}

TEST_F(DesktopEntriesTest, idIsFoundWholeThenInAnyCaseThenByItsLastPart) {
    install(system / "org.example.Files.desktop", "Name=Dateien");
    install(system / "sub/editor.desktop", "Name=Editor");
    EXPECT_EQ(idFor({"org.example.Files"}), "org.example.Files");
    EXPECT_EQ(idFor({"ORG.example.files"}), "org.example.Files");
    EXPECT_EQ(idFor({"files"}), "org.example.Files");
    EXPECT_EQ(idFor({"sub-editor"}), "sub-editor");
    EXPECT_EQ(idFor({"other"}), "none");
}

TEST_F(DesktopEntriesTest, wholeIdGoesBeforeAnothersLastPart) {
    install(system / "org.example.files.desktop", "Name=Andere");
    install(system / "files.desktop", "Name=Dateien");
    EXPECT_EQ(idFor({"Files"}), "files");
}

TEST_F(DesktopEntriesTest, lastPartThatTwoApplicationsShareTellsNothing) {
    install(system / "org.one.Viewer.desktop", "Name=Eins");
    install(system / "org.two.Viewer.desktop", "Name=Zwei");
    EXPECT_EQ(idFor({"viewer"}), "none");
}

TEST_F(DesktopEntriesTest, announcedClassGoesBeforeTheProgram) {
    install(system / "a.desktop", "Name=A\nStartupWMClass=Special\nExec=x");
    install(system / "b.desktop", "Name=B\nExec=/opt/b/bin/program --new %f");
    EXPECT_EQ(idFor({"special"}, "program"), "a");
    EXPECT_EQ(idFor({"unknown"}, "program"), "b");
}

TEST_F(DesktopEntriesTest, programOfSeveralApplicationsTellsNothingUnlessMenusShowOnlyOne) {
    install(system / "a.desktop", "Name=A\nExec=browser");
    install(system / "b.desktop", "Name=B\nExec=browser --app\nNoDisplay=true");
    EXPECT_EQ(idFor({}, "browser"), "a");
    install(system / "c.desktop", "Name=C\nExec=browser --other");
    EXPECT_EQ(idFor({}, "browser"), "none");
}

TEST_F(DesktopEntriesTest, ownEntryHidesTheSystemsAlsoWhenDeleted) {
    install(system / "a.desktop", "Name=System");
    install(own / "a.desktop", "Name=Eigene");
    EXPECT_EQ(entries.withId("a")->name, "Eigene");
    install(own / "b.desktop", "Name=B\nHidden=true");
    install(system / "b.desktop", "Name=B");
    EXPECT_EQ(entries.withId("b"), nullptr);
}

TEST_F(DesktopEntriesTest, newlyInstalledApplicationIsFound) {
    install(system / "a.desktop", "Name=A");
    EXPECT_EQ(idFor({"late"}), "none");
    install(system / "late.desktop", "Name=Spät");
    EXPECT_EQ(idFor({"late"}), "late");
}

TEST_F(DesktopEntriesTest, missingFoldersAndUnreadableFilesAreNoEntries) {
    EXPECT_EQ(idFor({"a"}), "none");
    fs::create_directories(system / "folder.desktop");
    std::ofstream(system / "binary.desktop") << std::string(100, '\xff');
    fs::create_symlink(system / "nowhere", system / "dangling.desktop");
    EXPECT_EQ(idFor({"folder", "binary", "dangling"}), "none");
}

TEST_F(DesktopEntriesTest, aFolderThatDoesNotAnswerIsLeftOutUntilItDoes) {
    install(own / "one.desktop", "Name=Eins");
    install(system / "two.desktop", "Name=Zwei");
    auto answered = std::make_shared<std::promise<void>>();
    const auto answer = answered->get_future().share();
    DesktopEntries partly({own, system},
                          [this, answer](const fs::path& root, const DesktopEntryFolderContent& known) {
                              if (root == own)
                                  answer.wait();
                              return readDesktopEntryFolder(root, known);
                          });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(partly.withId("one"), nullptr);
    EXPECT_NE(partly.withId("two"), nullptr);
    for (int times = 0; times < 100; ++times)
        EXPECT_EQ(partly.withId("one"), nullptr);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3)) << "it is waited for once";
    answered->set_value();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (partly.withId("one") == nullptr && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    EXPECT_NE(partly.withId("one"), nullptr);
}

} // namespace
} // namespace brisklog::test
