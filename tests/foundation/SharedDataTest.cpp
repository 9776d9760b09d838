#include "foundation/SharedData.h"

#include <gtest/gtest.h>
#include <random>

namespace brisklog::test {
namespace {

std::shared_ptr<const std::string> textObject(const std::string& text) {
    return std::make_shared<const std::string>(text);
}

std::optional<std::string> decodedBase64(const std::string& base64) {
    const auto data = SharedData::fromBase64(textObject(base64));
    return data ? std::optional(data->bytes()) : std::nullopt;
}

TEST(SharedData, keepsBytesAsTheTextInWhichTheyAreSaved) {
    const auto data = SharedData::of("foobar");
    EXPECT_EQ(data.base64(), "Zm9vYmFy");
    EXPECT_EQ(data.bytes(), "foobar");
    EXPECT_EQ(SharedData().bytes(), "");
    EXPECT_EQ(SharedData::fromBase64(textObject("Zm9vYmFy")), data);
    EXPECT_FALSE(SharedData::fromBase64(textObject("no Base64")));
}

TEST(SharedData, isTheTextOfItsBytes) {
    const std::pair<std::string, std::string> pairs[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"},
                                                         {"\xFB\xFF\xBF", "+/+/"}};
    for (const auto& [bytes, text] : pairs) {
        EXPECT_EQ(SharedData::of(bytes).base64(), text);
        EXPECT_EQ(decodedBase64(text), bytes);
    }
}

TEST(SharedData, whateverBytesComeBack) {
    std::mt19937 chance(5);
    for (std::size_t length = 0; length < 300; ++length) {
        std::string bytes(length, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(chance());
        const auto data = SharedData::of(bytes);
        EXPECT_EQ(data.bytes(), bytes);
        ASSERT_EQ(decodedBase64(data.base64()), bytes);
    }
}

TEST(SharedData, whatIsNoBase64IsAbsent) {
    for (const char* const text :
         {"Z", "Zg", "Zg=", "Z===", "====", "==", "Zg==Zg==", "Zm9v\n", "Zm 9", "Zm-_", "Zm9ä"})
        EXPECT_EQ(decodedBase64(text), std::nullopt) << text;
    EXPECT_EQ(decodedBase64(std::string("Zm9\0", 4)), std::nullopt);
}

TEST(SharedData, bitsThatStandForNothingAreNoMatter) { EXPECT_EQ(decodedBase64("Zh=="), "f"); }

TEST(SharedDataPool, equalBytesBecomeTheSame) {
    SharedDataPool pool;
    const auto first = pool.shared(SharedData::of("foobar"));
    EXPECT_TRUE(pool.shared(SharedData::of("foobar")).sharesBytesWith(first));
    EXPECT_TRUE(pool.fromBase64("Zm9vYmFy")->sharesBytesWith(first));
    EXPECT_TRUE(pool.fromBase64(textObject("Zm9vYmFy"))->sharesBytesWith(first));
    EXPECT_FALSE(pool.fromBase64("Zm9v")->sharesBytesWith(first));
    EXPECT_EQ(pool.size(), 2u);
}

TEST(SharedDataPool, keepsATextObjectInsteadOfCopyingIt) {
    SharedDataPool pool;
    const auto text = textObject("Zm9vYmFy");
    const auto data = pool.fromBase64(text);
    EXPECT_EQ(&data->base64(), text.get());
    EXPECT_TRUE(pool.fromBase64(text)->sharesBytesWith(*data));
}

TEST(SharedDataPool, refusesWhatIsNoBase64) {
    SharedDataPool pool;
    EXPECT_FALSE(pool.fromBase64("no Base64"));
    EXPECT_FALSE(pool.fromBase64(textObject("no Base64")));
    EXPECT_EQ(pool.size(), 0u);
}

TEST(SharedDataPool, letsGoOfWhatNobodyElseHolds) {
    SharedDataPool pool;
    const auto held = pool.shared(SharedData::of("held"));
    (void)pool.shared(SharedData::of("not held"));
    pool.forgetUnused();
    EXPECT_EQ(pool.size(), 1u);
    EXPECT_TRUE(pool.shared(SharedData::of("held")).sharesBytesWith(held));
    EXPECT_EQ(pool.shared(SharedData::of("not held")).bytes(), "not held");
}

} // namespace
} // namespace brisklog::test
