#include "platform/frontmost/WindowIdentity.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

TEST(WindowName, isOneLineOfWellFormedText) {
    EXPECT_EQ(windowName("  Two\nLines\x1b[1m\x7f\n"), "Two Lines [1m");
    EXPECT_EQ(windowName("M\xfcller"), "Müller");
    EXPECT_EQ(windowName("\n\t "), "");
    EXPECT_EQ(windowName(""), "");
}

TEST(WindowName, isNotEndlessAndCutBetweenCharacters) {
    const std::string half(std::size_t{512} * 1024, 'x');
    EXPECT_EQ(windowName(half), std::string(256, 'x'));
    EXPECT_EQ(windowName(std::string(255, 'x') + "ü" + half), std::string(255, 'x'));
    EXPECT_EQ(windowName(std::string(254, 'x') + "ü" + half), std::string(254, 'x') + "ü");
}

} // namespace
} // namespace brisklog::test
