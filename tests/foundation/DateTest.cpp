#include "foundation/Date.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(Date, countsFrom2001AndFrom1970) {
    EXPECT_EQ(Date{}.secondsSince1970(), 978307200);
    EXPECT_EQ(Date::fromSecondsSince1970(978307200), Date{});
    EXPECT_EQ(Date::fromSecondsSince1970(0).secondsSinceReference, -978307200);
    EXPECT_EQ(Date{816456008.5}.secondsSince1970(), 1794763208.5);
}

TEST(Date, millisecondsSince1970AreRounded) {
    EXPECT_EQ(millisecondsSince1970(Date{816456008.5}), 1794763208500);
    EXPECT_EQ(millisecondsSince1970(Date{816456008.1234}), 1794763208123);
    EXPECT_EQ(millisecondsSince1970(Date{816456008.1236}), 1794763208124);
    EXPECT_EQ(millisecondsSince1970(Date::fromSecondsSince1970(-0.25)), -250);
}

} // namespace
} // namespace brisklog::test
