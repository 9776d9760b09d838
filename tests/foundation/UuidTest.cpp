#include "foundation/Uuid.h"

#include <gtest/gtest.h>
#include <string>
#include <unordered_set>

namespace brisklog::test {
namespace {

constexpr const char* example = "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9";

TEST(Uuid, textComesBackAsItWas) { EXPECT_EQ(Uuid::parse(example)->text(), example); }

TEST(Uuid, lowerCaseIsReadAndWrittenUpperCase) {
    EXPECT_EQ(Uuid::parse("0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9")->text(), example);
    EXPECT_EQ(Uuid::parse("0a1b2C3D-4e5F-6071-8293-a4b5c6d7e8F9"), Uuid::parse(example));
}

TEST(Uuid, nothingElseIsAnIdentifier) {
    EXPECT_EQ(Uuid::parse(""), std::nullopt);
    EXPECT_EQ(Uuid::parse("0A1B2C3D4E5F60718293A4B5C6D7E8F9"), std::nullopt);
    EXPECT_EQ(Uuid::parse("{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}"), std::nullopt);
    EXPECT_EQ(Uuid::parse("0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F"), std::nullopt);
    EXPECT_EQ(Uuid::parse(std::string(example) + " "), std::nullopt);
}

TEST(Uuid, everyCharacterCounts) {
    for (std::size_t at = 0; at < 36; ++at)
        for (const char wrong : {'G', '-', ' ', '\0', '\xC3', '/', ':', '@', '`'}) {
            std::string text = example;
            if (text[at] == wrong)
                continue;
            text[at] = wrong;
            EXPECT_EQ(Uuid::parse(text), std::nullopt) << text;
        }
}

TEST(Uuid, generatedOnesAreRandomOfVersionFour) {
    std::unordered_set<Uuid> all;
    for (int i = 0; i < 1000; ++i) {
        const Uuid id = Uuid::generate();
        const std::string text = id.text();
        EXPECT_EQ(text[14], '4') << text;
        EXPECT_NE(std::string("89AB").find(text[19]), std::string::npos) << text;
        EXPECT_EQ(Uuid::parse(text), id);
        all.insert(id);
    }
    EXPECT_EQ(all.size(), 1000U);
}

TEST(Uuid, nilIsAllZeros) { EXPECT_EQ(Uuid().text(), "00000000-0000-0000-0000-000000000000"); }

} // namespace
} // namespace brisklog::test
