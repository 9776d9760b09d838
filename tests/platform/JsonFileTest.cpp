#include "platform/JsonFile.h"

#include "support/ChildProcess.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

class JsonFileTest : public ::testing::Test {
public:
    using Numbers = std::vector<double>;

    /// Writes a damaged file, last modified at a moment the test knows.
    void writeDamaged(std::string_view bytes) const {
        writeFile(file.path, bytes);
        fs::last_write_time(file.path, written);
    }

    [[nodiscard]] std::vector<std::string> rescuedContents() const {
        std::vector<std::string> contents;
        for (const auto& entry : fs::directory_iterator(home.state() / "rescued"))
            contents.push_back(readFile(entry.path()));
        return contents;
    }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    JsonFile<Numbers> file{home.documents() / "numbers.json", json::Layout::compact,
                           Durability::leftToSystem};
    fs::file_time_type written = fs::file_time_type::clock::now();
};

TEST_F(JsonFileTest, aSavedValueIsLoaded) {
    ASSERT_TRUE(file.save(files, {1, 2, 3}).succeeded());
    EXPECT_EQ(readFile(file.path), "[1.0,2.0,3.0]");
    EXPECT_EQ(file.load(files, log).value(), (Numbers{1, 2, 3}));
}

TEST_F(JsonFileTest, aMissingFileIsAnErrorAndNothingIsRescued) {
    EXPECT_TRUE(file.load(files, log).failed());
    EXPECT_FALSE(fs::exists(home.state()));
}

TEST_F(JsonFileTest, undecodableBytesAreRescuedUnderTheTimeTheyWereWritten) {
    writeDamaged("[1,2");
    ASSERT_TRUE(file.load(files, log).failed());
    EXPECT_EQ(readFile(file.path), "[1,2") << "the file itself is left alone";
    const auto sinceEpoch = fs::file_time_type::clock::to_sys(written).time_since_epoch();
    const auto name = "numbers-" +
                      std::to_string(std::chrono::round<std::chrono::milliseconds>(sinceEpoch).count()) +
                      ".json";
    EXPECT_EQ(readFile(home.state() / "rescued" / name), "[1,2");
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(JsonFileTest, theSameBytesAreRescuedOnce) {
    writeDamaged("[1,2");
    (void)file.load(files, log);
    (void)file.load(files, log);
    EXPECT_THAT(rescuedContents(), ElementsAre("[1,2"));
    EXPECT_THAT(files.written, SizeIs(1));
}

TEST_F(JsonFileTest, twoDamagedVersionsOfTheSameMomentAreBothRescued) {
    for (const char* const bytes : {"[1,2", "[3,4", "[5,6", "[3,4"}) {
        writeDamaged(bytes);
        (void)file.load(files, log);
    }
    EXPECT_THAT(rescuedContents(), UnorderedElementsAre("[1,2", "[3,4", "[5,6"));
}

TEST_F(JsonFileTest, aFailedRescueIsOneLine) {
    writeDamaged("[1,2");
    files.writesFail = true;
    EXPECT_TRUE(file.load(files, log).failed());
    EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error keeping undecodable file: ")));
}

TEST_F(JsonFileTest, anUnreadableRescueFolderIsOneLineAndNoEndlessSearch) {
    writeDamaged("[1,2");
    fs::create_directories(home.state() / "rescued");
    fs::permissions(home.state() / "rescued", fs::perms::none);
    const auto end = runAsNobody(home.path(), [this] {
        EXPECT_TRUE(file.load(files, log).failed());
        EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error keeping undecodable file: ")));
    });
    EXPECT_FALSE(end.failed);
}

TEST_F(JsonFileTest, withoutAHomeNothingIsRescuedAndNothingPrinted) {
    writeDamaged("[1,2");
    files.hasHome = false;
    EXPECT_TRUE(file.load(files, log).failed());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(JsonFileTest, aValueThatCannotBeEncodedLeavesTheFileAsItIs) {
    const JsonFile<double> number{home.documents() / "number.json", json::Layout::compact,
                                  Durability::leftToSystem};
    ASSERT_TRUE(number.save(files, 1.5).succeeded());
    EXPECT_TRUE(number.save(files, std::numeric_limits<double>::infinity()).failed());
    EXPECT_EQ(readFile(number.path), "1.5");
}

} // namespace
} // namespace brisklog::test
