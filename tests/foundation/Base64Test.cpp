#include "foundation/Base64.h"

#include <gtest/gtest.h>
#include <random>

namespace brisklog::test {
namespace {

TEST(Base64, knownTexts) {
    const std::pair<std::string, std::string> pairs[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"},
                                                         {"\xFB\xFF\xBF", "+/+/"}};
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(base64::encode(bytes), text);
        EXPECT_EQ(base64::decode(text), bytes);
    }
}

TEST(Base64, whateverBytesComeBack) {
    std::mt19937 chance(5);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(chance());
        const std::string text = base64::encode(bytes);
        EXPECT_TRUE(base64::isWellFormed(text));
        ASSERT_EQ(base64::decode(text), bytes);
    }
}

TEST(Base64, whatIsNoneIsAbsent) {
    for (const char* const text :
         {"Z", "Zg", "Zg=", "Z===", "====", "==", "Zg==Zg==", "Zm9v\n", "Zm 9", "Zm-_", "Zm9ä"}) {
        EXPECT_FALSE(base64::isWellFormed(text)) << text;
        EXPECT_EQ(base64::decode(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace brisklog::test
