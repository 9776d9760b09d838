#include "foundation/SharedData.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

std::shared_ptr<const std::string> textObject(const char* text) {
    return std::make_shared<const std::string>(text);
}

TEST(SharedData, keepsBytesAsTheTextInWhichTheyAreSaved) {
    const auto data = SharedData::of("foobar");
    EXPECT_EQ(data.base64(), "Zm9vYmFy");
    EXPECT_EQ(data.bytes(), "foobar");
    EXPECT_EQ(SharedData().bytes(), "");
    EXPECT_EQ(SharedData::fromBase64(textObject("Zm9vYmFy")), data);
    EXPECT_FALSE(SharedData::fromBase64(textObject("no Base64")));
}

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
