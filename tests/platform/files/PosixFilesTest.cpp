#include "platform/files/PosixFiles.h"

#include "platform/files/Process.h"
#include "support/ChildProcess.h"
#include "support/TemporaryHome.h"

#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::EndsWith;
using ::testing::StartsWith;

class PosixFilesTest : public ::testing::Test {
public:
    [[nodiscard]] Result<Done> replace(const fs::path& target, std::string_view bytes) {
        return files.replace(target, bytes, Durability::throughToMedium);
    }

    [[nodiscard]] std::string errorOfReplacing(const fs::path& target, std::string_view bytes) {
        const auto result = replace(target, bytes);
        return result.failed() ? result.error().description : "it succeeded";
    }

    TemporaryHome home;
    fs::path path = home.path() / "folder" / "file.json";
    PosixFiles files;
};

ino_t inodeOf(const fs::path& path) {
    struct stat status {};

    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_ino;
}

TEST_F(PosixFilesTest, whatIsWrittenIsReadBack) {
    for (const std::string& bytes :
         {std::string("Grüße\0\xFF", 9), std::string(), std::string(3000000, 'x')}) {
        ASSERT_TRUE(replace(path, bytes).succeeded());
        EXPECT_EQ(files.read(path).value(), bytes);
    }
}

TEST_F(PosixFilesTest, replacingKeepsTheFileItself) {
    ASSERT_TRUE(replace(path, "old content").succeeded());
    fs::create_hard_link(path, home.path() / "other name");
    const auto inode = inodeOf(path);
    ASSERT_TRUE(replace(path, "new and longer content").succeeded());
    EXPECT_EQ(inodeOf(path), inode);
    EXPECT_EQ(readFile(home.path() / "other name"), "new and longer content");
}

TEST_F(PosixFilesTest, replacingLeavesNothingElseInTheFolder) {
    ASSERT_TRUE(replace(path, "content").succeeded());
    EXPECT_EQ(std::distance(fs::directory_iterator(path.parent_path()), {}), 1);
}

TEST_F(PosixFilesTest, shorterContentLeavesNothingOfTheLonger) {
    ASSERT_TRUE(replace(path, std::string(100000, 'x')).succeeded());
    ASSERT_TRUE(replace(path, "short").succeeded());
    EXPECT_EQ(readFile(path), "short");
}

TEST_F(PosixFilesTest, newFilesAndFoldersAreForTheirOwnerAlone) {
    const auto before = ::umask(0);
    ASSERT_TRUE(replace(home.path() / "a" / "b" / "file", "content").succeeded());
    ::umask(before);
    EXPECT_EQ(modeOf(home.path() / "a"), 0700u);
    EXPECT_EQ(modeOf(home.path() / "a" / "b"), 0700u);
    EXPECT_EQ(modeOf(home.path() / "a" / "b" / "file"), 0600u);
}

TEST_F(PosixFilesTest, anExistingFilesModeIsTheUsersChoice) {
    writeFile(path, "old");
    fs::permissions(path, fs::perms(0640));
    ASSERT_TRUE(replace(path, "new").succeeded());
    EXPECT_EQ(modeOf(path), 0640u);
}

TEST_F(PosixFilesTest, aLinkToAFileIsWrittenThrough) {
    writeFile(home.path() / "target", "old");
    fs::create_directories(path.parent_path());
    fs::create_symlink(home.path() / "target", path);
    ASSERT_TRUE(replace(path, "new").succeeded());
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(readFile(home.path() / "target"), "new");
}

TEST_F(PosixFilesTest, aLinkThatLeadsNowhereIsAbsentAndItsTargetMadeOnWriting) {
    fs::create_directories(path.parent_path());
    fs::create_symlink(home.path() / "target", path);
    EXPECT_FALSE(files.exists(path));
    ASSERT_TRUE(replace(path, "new").succeeded());
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(readFile(home.path() / "target"), "new");
}

TEST_F(PosixFilesTest, aLinkIntoAMissingFolderIsAnError) {
    fs::create_directories(path.parent_path());
    fs::create_symlink(home.path() / "missing" / "target", path);
    EXPECT_THAT(errorOfReplacing(path, "new"), EndsWith(": No such file or directory"));
}

TEST_F(PosixFilesTest, aFolderInTheFilesPlaceIsAnError) {
    fs::create_directories(path);
    EXPECT_TRUE(files.exists(path));
    EXPECT_EQ(errorOfReplacing(path, "new"), path.string() + ": Is a directory");
    EXPECT_EQ(files.read(path).error().description, path.string() + ": Is a directory");
}

TEST_F(PosixFilesTest, aPipeInTheFilesPlaceIsAnErrorAndNoHang) {
    fs::create_directories(path.parent_path());
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_THAT(errorOfReplacing(path, "new"), StartsWith(path.string()));
    EXPECT_EQ(files.read(path).error().description, path.string() + ": not a regular file");
    // With a reader at the other end the pipe can be opened.
    const int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_EQ(errorOfReplacing(path, "new"), path.string() + ": not a regular file");
    ::close(reader);
}

TEST_F(PosixFilesTest, aFileInAFoldersPlaceIsAnError) {
    writeFile(home.path() / "folder", "a file");
    EXPECT_FALSE(files.exists(path));
    EXPECT_THAT(errorOfReplacing(path, "new"), EndsWith(": Not a directory"));
    EXPECT_EQ(readFile(home.path() / "folder"), "a file");
}

TEST_F(PosixFilesTest, aMissingFileIsAnErrorToReadAndRemove) {
    EXPECT_FALSE(files.exists(path));
    EXPECT_EQ(files.read(path).error().description, path.string() + ": No such file or directory");
    EXPECT_EQ(files.remove(path).error().description, path.string() + ": No such file or directory");
    EXPECT_FALSE(files.modificationDate(path));
}

TEST_F(PosixFilesTest, aRemovedFileIsGone) {
    writeFile(path, "content");
    EXPECT_TRUE(files.remove(path).succeeded());
    EXPECT_FALSE(files.exists(path));
}

TEST_F(PosixFilesTest, aFileTooLargeToBeOursIsAnError) {
    writeFile(path, "");
    fs::resize_file(path, std::uintmax_t{5} << 30);
    EXPECT_EQ(files.read(path).error().description, path.string() + ": File too large");
}

TEST_F(PosixFilesTest, theModificationDateCountsFromTheReferenceDate) {
    writeFile(path, "content");
    const struct timespec times[2] = {{0, UTIME_OMIT},
                                      {static_cast<time_t>(secondsFromUnixEpochToReference) + 5, 500000000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(files.modificationDate(path), Date{5.5});
}

TEST_F(PosixFilesTest, creatingAFolderThatIsThereIsNoError) {
    EXPECT_TRUE(files.createFolder(home.path() / "a" / "b").succeeded());
    EXPECT_TRUE(files.createFolder(home.path() / "a" / "b").succeeded());
    fs::create_directory_symlink(home.path() / "a", home.path() / "link");
    EXPECT_TRUE(files.createFolder(home.path() / "link").succeeded());
}

TEST_F(PosixFilesTest, withoutPermissionItIsAnErrorAndTheContentStays) {
    writeFile(path, "old");
    fs::permissions(path, fs::perms::owner_read);
    const auto end = runAsNobody(home.path(), [this] {
        EXPECT_EQ(errorOfReplacing(path, "new"), path.string() + ": Permission denied");
        EXPECT_EQ(files.read(path).value(), "old");
        fs::permissions(path, fs::perms::none);
        EXPECT_EQ(files.read(path).error().description, path.string() + ": Permission denied");
        fs::permissions(path.parent_path(), fs::perms::none);
        EXPECT_TRUE(files.exists(path)) << "a file that cannot be accessed must not be taken for absent";
        EXPECT_THAT(errorOfReplacing(path.parent_path() / "other", "new"), EndsWith(": Permission denied"));
    });
    EXPECT_FALSE(end.failed);
}

TEST_F(PosixFilesTest, onAFullDiskTheOldContentStaysWhole) {
    SharedCounter mounted;
    const auto end = runInChild([&] {
        if (!mountSmallFileSystem(home.path(), "300k"))
            return;
        mounted.set(1);
        const std::string old(100000, 'o');
        ASSERT_TRUE(replace(path, old).succeeded());
        EXPECT_THAT(errorOfReplacing(path, std::string(400000, 'n')), EndsWith(": No space left on device"));
        EXPECT_EQ(readFile(path), old);
        // The space reserved for the failed write is released.
        EXPECT_TRUE(replace(path, std::string(200000, 'n')).succeeded());
        EXPECT_THAT(errorOfReplacing(path.parent_path() / "other", std::string(400000, 'n')),
                    EndsWith(": No space left on device"));
        EXPECT_FALSE(fs::exists(path.parent_path() / "other"))
            << "an empty file would be taken for a damaged one";
    });
    if (mounted.value() == 0)
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_FALSE(end.failed);
}

TEST_F(PosixFilesTest, beyondTheSizeLimitTheOldContentStaysWhole) {
    const std::string old(10000, 'o');
    ASSERT_TRUE(replace(path, old).succeeded());
    const auto end = runInChild([&] {
        const struct rlimit limit { 50000, 50000 };

        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_EQ(errorOfReplacing(path, std::string(50001, 'n')), path.string() + ": File too large");
        EXPECT_EQ(readFile(path), old);
        EXPECT_TRUE(replace(path, std::string(50000, 'n')).succeeded());
    });
    EXPECT_EQ(end.signal, 0);
    EXPECT_FALSE(end.failed);
}

TEST_F(PosixFilesTest, suddenDeathLeavesOldOrNewContentWhole) {
    const std::array contents{std::string(100000, 'a'), std::string(103000, 'b'), std::string(97000, 'c')};
    int torn = 0;
    for (int kill = 0; kill < 40; ++kill) {
        SharedCounter written;
        killWhileWorking(written, 20, [&] {
            for (long count = 0;; written.set(++count))
                (void)files.replace(path, contents[static_cast<std::size_t>(count % 3)],
                                    Durability::leftToSystem);
        });
        const std::string found = readFile(path);
        torn += std::ranges::find(contents, found) == contents.end() ? 1 : 0;
    }
    EXPECT_EQ(torn, 0) << "of 40";
}

TEST_F(PosixFilesTest, theFoldersAreTheDesktops) {
    EXPECT_EQ(files.documentsFolder(), home.path() / "Documents");
    EXPECT_EQ(files.applicationSupportFolder(), home.path() / "data");
    EXPECT_EQ(files.stateFolder(), home.path() / "state" / "brisklog");
    EXPECT_EQ(PosixFiles::configurationFolder(), home.path() / "config" / "brisklog");
}

TEST_F(PosixFilesTest, theUsersOwnDocumentsFolderIsFollowed) {
    writeFile(home.path() / "config" / "user-dirs.dirs",
              "XDG_DOCUMENTS_DIR=\"$HOME/Eigene Schriftstücke\"\n");
    EXPECT_EQ(files.documentsFolder(), home.path() / "Eigene Schriftstücke");
}

TEST_F(PosixFilesTest, foldersAreInTheHomeWhenNothingElseIsNamed) {
    for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        ::unsetenv(variable);
    EXPECT_EQ(files.applicationSupportFolder(), home.path() / ".local/share");
    EXPECT_EQ(files.stateFolder(), home.path() / ".local/state/brisklog");
    EXPECT_EQ(PosixFiles::configurationFolder(), home.path() / ".config/brisklog");
    ::setenv("XDG_DATA_HOME", "relative/folder", 1);
    EXPECT_EQ(files.applicationSupportFolder(), home.path() / ".local/share");
}

TEST_F(PosixFilesTest, withoutAHomeThereAreNoFolders) {
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        ::unsetenv(variable);
    EXPECT_FALSE(files.documentsFolder());
    EXPECT_FALSE(files.applicationSupportFolder());
    EXPECT_FALSE(files.stateFolder());
    EXPECT_FALSE(PosixFiles::configurationFolder());
    ::setenv("HOME", "", 1);
    EXPECT_FALSE(files.documentsFolder());
}

TEST(FailedWrites, aWriteToAClosedPipeReturns) {
    const auto end = runInChild([] {
        surviveFailedWrites();
        int ends[2] = {};
        ASSERT_EQ(::pipe(ends), 0);
        ::close(ends[0]);
        EXPECT_EQ(::write(ends[1], "x", 1), -1);
    });
    EXPECT_EQ(end.signal, 0);
    EXPECT_FALSE(end.failed);
}

} // namespace
} // namespace brisklog::test
