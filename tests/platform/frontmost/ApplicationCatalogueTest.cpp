#include "platform/frontmost/ApplicationCatalogue.h"

#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using Seen = std::optional<DesktopApplication>;

const Seen one = DesktopApplication{.localizedName = "One", .bundleIdentifier = "one"};
const Seen two = DesktopApplication{.localizedName = "Two", .bundleIdentifier = "two"};
const Seen nameless = DesktopApplication{};
const Seen nothing = std::nullopt;

TEST(FocusGaps, theFirstGapIsBridgedAndTheSecondBelieved) {
    FocusGaps gaps;
    EXPECT_EQ(gaps.bridgeGap(one), one);
    EXPECT_EQ(gaps.bridgeGap(nothing), one);
    EXPECT_EQ(gaps.bridgeGap(nothing), nothing);
    EXPECT_EQ(gaps.bridgeGap(two), two);
}

TEST(FocusGaps, aWindowWithoutNameIsAGapAtFirst) {
    FocusGaps gaps;
    EXPECT_EQ(gaps.bridgeGap(nameless), nameless);
    EXPECT_EQ(gaps.bridgeGap(one), one);
    EXPECT_EQ(gaps.bridgeGap(nameless), one);
    EXPECT_EQ(gaps.bridgeGap(nameless), nameless);
    EXPECT_EQ(gaps.bridgeGap(one), one);
    EXPECT_EQ(gaps.bridgeGap(nameless), one);
    EXPECT_EQ(gaps.bridgeGap(two), two);
}

TEST(FocusGaps, whatIsForgottenBridgesNothing) {
    FocusGaps gaps;
    EXPECT_EQ(gaps.bridgeGap(one), one);
    gaps.forget();
    EXPECT_EQ(gaps.bridgeGap(nothing), nothing);
}

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

TEST(DescribedWindow, aWindowThatBecomesAnotherIsDescribedAnew) {
    const TemporaryHome home;
    DescribedWindow described;
    EXPECT_EQ(described.answer(WindowIdentity{.names = {"a"}, .windowClass = "a", .program = {}}),
              (DesktopApplication{.localizedName = "a", .bundleIdentifier = "a"}));
    EXPECT_EQ(described.answer(WindowIdentity{.names = {"b"}, .windowClass = "b", .program = {}}),
              (DesktopApplication{.localizedName = "b", .bundleIdentifier = "b"}));
}

} // namespace
} // namespace brisklog::test
