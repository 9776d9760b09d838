// An object whose properties are kept in a file, and how it reads files and user defaults of earlier
// versions.

#include "platform/StoredProperties.h"

#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

enum class Shade { light, dark };

std::string_view jsonText(Shade shade) { return shade == Shade::light ? "hell" : "dunkel"; }

bool fromJsonText(std::string_view text, Shade& shade) {
    shade = text == "dunkel" ? Shade::dark : Shade::light;
    return text == "hell" || text == "dunkel";
}

class Lamp final : public ObservableObject {
public:
    Published<std::string> room{*this, "Flur"};
    Published<Shade> shade{*this, Shade::dark};
    Published<double> height{*this, 2};
    Published<bool> isOn{*this, true};
    // Added in a later version.
    Published<std::string> maker{*this, "Eigenbau"};
    Published<Shade> shadeAtNight{*this, Shade::dark};
};

constexpr auto storedProperties(std::type_identity<Lamp>) {
    using enum json::IfMissing;
    return std::tuple{stored<&Lamp::room>("room", "lamp_room"),
                      stored<&Lamp::shade>("shade", "lamp_shade"),
                      stored<&Lamp::height>("height"),
                      stored<&Lamp::isOn>("isOn", "lamp_isOn"),
                      stored<&Lamp::maker>("maker", keepsDefault),
                      stored<&Lamp::shadeAtNight>("shadeAtNight", keepsDefault)};
}

constexpr const char* fromBefore = R"({"room":"Bad","shade":"hell","height":1.5,"isOn":false})";

class StoredPropertiesTest : public testing::Test {
protected:
    /// Loads the lamp from these bytes.
    Result<Done> load(const std::string& bytes) {
        writeFile(file(), bytes);
        return loadProperties(lamp, file(), files, log);
    }

    [[nodiscard]] std::filesystem::path file() const { return home.path() / "lamp.json"; }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    MemoryUserDefaults defaults;
    Lamp lamp;
};

TEST_F(StoredPropertiesTest, areWrittenInTheTablesOrder) {
    ASSERT_TRUE(saveProperties(lamp, file(), files).succeeded());
    EXPECT_EQ(readFile(file()), R"({
  "room": "Flur",
  "shade": "dunkel",
  "height": 2.0,
  "isOn": true,
  "maker": "Eigenbau",
  "shadeAtNight": "dunkel"
})");
}

TEST_F(StoredPropertiesTest, addedLaterKeepTheirDefaultsWhereAFileLacksThem) {
    ASSERT_TRUE(load(fromBefore).succeeded());
    EXPECT_EQ(lamp.room.get(), "Bad");
    EXPECT_EQ(lamp.shade.get(), Shade::light);
    EXPECT_EQ(lamp.height.get(), 1.5);
    EXPECT_FALSE(lamp.isOn);
    EXPECT_EQ(lamp.maker.get(), "Eigenbau");
    EXPECT_EQ(lamp.shadeAtNight.get(), Shade::dark);
}

TEST_F(StoredPropertiesTest, addedLaterAreReadWhereAFileHasThem) {
    ASSERT_TRUE(saveProperties(lamp, file(), files).succeeded());
    std::string stored = readFile(file());
    stored.replace(stored.find("Eigenbau"), 8, "");
    ASSERT_TRUE(load(stored).succeeded());
    EXPECT_EQ(lamp.maker.get(), "");
}

TEST_F(StoredPropertiesTest, areEachWrittenOnceInTheTablesOrderWhenLoaded) {
    std::vector<std::string> rooms;
    std::vector<double> heights;
    const Subscription subscription = lamp.observe([&] {
        rooms.push_back(lamp.room);
        heights.push_back(lamp.height);
    });
    ASSERT_TRUE(load(fromBefore).succeeded());
    EXPECT_EQ(rooms, (std::vector<std::string>{"Flur", "Bad", "Bad", "Bad", "Bad", "Bad"}));
    EXPECT_EQ(heights, (std::vector<double>{2, 2, 2, 1.5, 1.5, 1.5}));
}

TEST_F(StoredPropertiesTest, areLeftAloneByATextThatIsNoneOfTheirOptions) {
    ASSERT_TRUE(load(R"({"room":"Bad","shade":"grell","height":1,"isOn":true})").succeeded());
    EXPECT_EQ(lamp.shade.get(), Shade::dark);
    EXPECT_EQ(lamp.shade.revision(), 0U);
    EXPECT_EQ(lamp.room.get(), "Bad");
}

TEST_F(StoredPropertiesTest, areAllLeftAloneByAFileThatDoesNotFit) {
    const auto loaded = load(R"({"room":"Bad","shade":"hell","isOn":true})");
    ASSERT_TRUE(loaded.failed());
    EXPECT_EQ(loaded.error().description.find("height: missing"), 0U);
    EXPECT_EQ(lamp.room.revision(), 0U);
}

TEST_F(StoredPropertiesTest, withoutAFileNothingHappens) {
    EXPECT_TRUE(loadProperties(lamp, file(), files, log).succeeded());
    EXPECT_EQ(lamp.room.revision(), 0U);
}

TEST_F(StoredPropertiesTest, areTakenOverFromTheUserDefaultsWhereTheyHaveAnOlderKey) {
    for (const char* const key : {"lamp_room", "height", "lamp_height", "lamp_maker", "maker", ""})
        defaults.setValue(key, "alt");
    EXPECT_TRUE(takeOverOlderValues(lamp, defaults));
    EXPECT_EQ(lamp.room.get(), "alt");
    EXPECT_EQ(lamp.height.get(), 2);
    EXPECT_EQ(lamp.maker.get(), "Eigenbau");
    EXPECT_EQ(defaults.removed, std::vector<std::string>{"lamp_room"});
    EXPECT_FALSE(takeOverOlderValues(lamp, defaults)) << "no older value is left";
}

} // namespace
} // namespace brisklog::test
