#include "platform/files/PosixFiles.h"
#include "support/TemporaryHome.h"

#include <fstream>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FolderEntriesTest : public testing::Test {
protected:
    TemporaryHome home;
    PosixFiles files;
};

TEST_F(FolderEntriesTest, namesEverythingAndTellsFoldersFromTheRest) {
    writeFile(home.path() / "sub" / "inner.txt", "");
    writeFile(home.path() / "file.txt", "");
    writeFile(home.path() / ".hidden", "");
    EXPECT_THAT(files.entriesIn(home.path()).value(),
                UnorderedElementsAre(FolderEntry{"sub", true}, FolderEntry{"file.txt", false},
                                     FolderEntry{".hidden", false}));
    EXPECT_THAT(files.entriesIn(home.path() / "sub").value(),
                UnorderedElementsAre(FolderEntry{"inner.txt", false}));
}

TEST_F(FolderEntriesTest, aLinkCountsAsWhatItLeadsTo) {
    fs::create_directory(home.path() / "sub");
    fs::create_symlink("sub", home.path() / "toFolder");
    fs::create_symlink("nowhere", home.path() / "toNothing");
    fs::create_symlink("circle", home.path() / "circle");
    fs::create_symlink("..", home.path() / "sub" / "up");
    EXPECT_THAT(files.entriesIn(home.path()).value(),
                UnorderedElementsAre(FolderEntry{"sub", true}, FolderEntry{"toFolder", true},
                                     FolderEntry{"toNothing", false}, FolderEntry{"circle", false}));
    EXPECT_EQ(files.entriesIn(home.path() / "sub/up/sub/up/sub").value(),
              (std::vector<FolderEntry>{{"up", true}}));
}

TEST_F(FolderEntriesTest, aNameThatIsNoUtf8ComesAsItIs) {
    writeFile(home.path() / "sub" / "\xFF\xFE.png", "");
    EXPECT_EQ(files.entriesIn(home.path() / "sub").value(),
              (std::vector<FolderEntry>{{"\xFF\xFE.png", false}}));
}

TEST_F(FolderEntriesTest, anEmptyFolderIsNoError) {
    fs::create_directory(home.path() / "empty");
    EXPECT_THAT(files.entriesIn(home.path() / "empty").value(), IsEmpty());
}

TEST_F(FolderEntriesTest, whatIsNoFolderIsAnErrorWithItsPath) {
    writeFile(home.path() / "file", "");
    const auto complaint = [&](const fs::path& path) { return files.entriesIn(path).error().description; };
    EXPECT_EQ(complaint(home.path() / "none"),
              (home.path() / "none").string() + ": No such file or directory");
    EXPECT_EQ(complaint(home.path() / "file"), (home.path() / "file").string() + ": Not a directory");
}

TEST_F(FolderEntriesTest, picturesLieWhereTheDesktopSays) {
    EXPECT_EQ(files.homeFolder(), home.path());
    EXPECT_EQ(files.picturesFolder(), home.path() / "Pictures");
    writeFile(home.path() / "config" / "user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    EXPECT_EQ(files.picturesFolder(), home.path() / "Bilder");
}

TEST_F(FolderEntriesTest, aDesktopWithoutAPicturesFolderHasNone) {
    writeFile(home.path() / "config" / "user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/\"\n");
    EXPECT_EQ(files.picturesFolder(), std::nullopt);
    ::unsetenv("HOME");
    EXPECT_EQ(files.picturesFolder(), std::nullopt);
    EXPECT_EQ(files.homeFolder(), std::nullopt);
}

} // namespace
} // namespace brisklog::test
