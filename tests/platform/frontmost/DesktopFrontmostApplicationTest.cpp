#include "platform/frontmost/DesktopFrontmostApplication.h"

#include "FakeFrontmostWindow.h"
#include "FrontmostExpectations.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

/// The rules over a desktop that shows whatever the test wants.
class WhatCountsAsInFront : public ::testing::Test {
protected:
    WhatCountsAsInFront() { frontmost.beginWatching(); }

    /// What counts as in front one second after the desktop began to show this.
    std::optional<DesktopApplication> see(const InFront& seen) {
        desktop.seen = seen;
        return frontmost.current();
    }

    static InFront window(const std::string& name, std::uint32_t process = 0) {
        return {.kind = InFront::Kind::window,
                .window = {.names = {name}, .windowClass = name, .program = {}, .process = process}};
    }

    const InFront ownWindow = window("Brisklog", ownWindows.process);
    const InFront nameless{.kind = InFront::Kind::window};
    const InFront nothing{.kind = InFront::Kind::nothing};
    const InFront unknown{};
    const DesktopApplication withoutName;

    TemporaryHome home;
    std::unique_ptr<FakeFrontmostWindow> made = std::make_unique<FakeFrontmostWindow>();
    FakeFrontmostWindow& desktop = *made;
    std::unique_ptr<FakeUserPresence> user = std::make_unique<FakeUserPresence>();
    FakeUserPresence& presence = *user;
    DesktopFrontmostApplication frontmost{std::move(made), std::move(user), ownWindows};
};

TEST_F(WhatCountsAsInFront, aGapBetweenTwoWindowsIsNone) {
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see(nothing), application("one"));
    EXPECT_EQ(see(window("two")), application("two"));
    EXPECT_EQ(see(nameless), application("two"));
    EXPECT_EQ(see(window("one")), application("one"));
}

TEST_F(WhatCountsAsInFront, aWindowThatKeepsWithoutANameIsBelieved) {
    EXPECT_EQ(see(nameless), std::nullopt);
    EXPECT_EQ(see(nameless), withoutName);
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see(nameless), application("one"));
    EXPECT_EQ(see(nameless), withoutName);
    EXPECT_EQ(see(window("two")), application("two"));
}

TEST_F(WhatCountsAsInFront, anotherBeginningKnowsNothingOfWhatWasBefore) {
    EXPECT_EQ(see(window("one")), application("one"));
    frontmost.endWatching();
    frontmost.beginWatching();
    EXPECT_EQ(see(nothing), std::nullopt);
    frontmost.endWatching();
    frontmost.beginWatching();
    EXPECT_EQ(see(ownWindow), std::nullopt);
}

TEST_F(WhatCountsAsInFront, whatTheDesktopDoesNotTellIsUnknown) {
    EXPECT_EQ(see(unknown), std::nullopt);
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see(unknown), std::nullopt);
}

// The bare desktop

TEST_F(WhatCountsAsInFront, aSecondWithoutAnyWindowIsTheBareDesktop) {
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see(nothing), application("one"));
    EXPECT_EQ(see(nothing), bareDesktop);
    EXPECT_EQ(see(nameless), bareDesktop);
    EXPECT_EQ(see(window("two")), application("two"));
}

TEST_F(WhatCountsAsInFront, beginningWithoutAnyWindowItIsTheBareDesktopASecondLater) {
    EXPECT_EQ(see(nothing), std::nullopt);
    EXPECT_EQ(see(nothing), bareDesktop);
}

TEST_F(WhatCountsAsInFront, theDesktopsOwnWindowIsTheBareDesktopAtOnce) {
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see({.kind = InFront::Kind::desktop}), bareDesktop);
    EXPECT_EQ(see(ownWindow), bareDesktop) << "that is what was in front before";
}

TEST_F(WhatCountsAsInFront, beginningInAnOwnWindowOnTheBareDesktopThatIsInFront) {
    desktop.uppermostOther = nothing;
    EXPECT_EQ(see(ownWindow), bareDesktop);
}

// The locked screen

TEST_F(WhatCountsAsInFront, aLockedScreenIsInFrontWhateverTheDesktopShows) {
    EXPECT_EQ(see(window("one")), application("one"));
    presence.away = true;
    EXPECT_EQ(see(window("one")), lockedScreen);
    EXPECT_EQ(see(nothing), lockedScreen);
    EXPECT_EQ(see(unknown), lockedScreen);
    presence.away = false;
    EXPECT_EQ(see(window("one")), application("one"));
}

TEST_F(WhatCountsAsInFront, afterTheLockedScreenOwnWindowsAreTheApplicationBeforeIt) {
    EXPECT_EQ(see(window("one")), application("one"));
    presence.away = true;
    EXPECT_EQ(see(ownWindow), lockedScreen);
    presence.away = false;
    EXPECT_EQ(see(ownWindow), application("one"));
}

TEST_F(WhatCountsAsInFront, aDesktopThatTellsNothingWhileItIsLockedIsStillAvailable) {
    using Availability = FrontmostApplication::Availability;
    EXPECT_EQ(see(window("one")), application("one"));
    presence.away = true;
    desktop.told = Availability::switchedOff;
    EXPECT_EQ(frontmost.availability(), Availability::available);
    EXPECT_EQ(see(unknown), lockedScreen);
    presence.away = false;
    EXPECT_EQ(frontmost.availability(), Availability::switchedOff);
}

TEST_F(WhatCountsAsInFront, whereNobodyTellsWhatIsInFrontTheLockedScreenIsNotRecordedEither) {
    desktop.told = FrontmostApplication::Availability::unavailable;
    EXPECT_EQ(see(unknown), std::nullopt);
    presence.away = true;
    EXPECT_EQ(see(unknown), std::nullopt);
    EXPECT_FALSE(frontmost.mayReport());
}

TEST_F(WhatCountsAsInFront, theMachineMaySleepOnceItHasBeenAsked) {
    presence.away = true;
    EXPECT_EQ(presence.confirmations, 0);
    (void)see(nothing);
    EXPECT_EQ(presence.confirmations, 1);
}

TEST_F(WhatCountsAsInFront, theUserIsWatchedOnlyWhileTheDesktopIs) {
    EXPECT_TRUE(presence.isWatched);
    frontmost.endWatching();
    EXPECT_FALSE(presence.isWatched);
    EXPECT_FALSE(desktop.isWatched);
}

// Own windows

TEST_F(WhatCountsAsInFront, whileOwnWindowsAreInFrontItIsTheApplicationBeforeThem) {
    EXPECT_EQ(see(window("one")), application("one"));
    EXPECT_EQ(see(ownWindow), application("one"));
    EXPECT_EQ(see(ownWindow), application("one"));
    EXPECT_EQ(see(nothing), application("one")) << "a gap after an own window is one";
    EXPECT_EQ(see(window("two")), application("two"));
    EXPECT_EQ(see(ownWindow), application("two"));
}

TEST_F(WhatCountsAsInFront, whereTheDesktopTellsNoProcessOwnWindowsAreKnownByTheirNames) {
    EXPECT_EQ(see(window("one")), application("one"));
    for (const std::string& name : ownWindows.names)
        EXPECT_EQ(see(window(name)), application("one"));
    EXPECT_EQ(see(window("brisklog", 4711)), application("brisklog")) << "another program of that name";
}

TEST_F(WhatCountsAsInFront, beginningInAnOwnWindowItIsTheApplicationBehindIt) {
    desktop.uppermostOther = window("one");
    EXPECT_EQ(see(ownWindow), application("one"));
    desktop.uppermostOther = window("two");
    EXPECT_EQ(see(ownWindow), application("one")) << "what was in front before stays the same";
    EXPECT_EQ(desktop.timesAskedBehind, 1);
}

TEST_F(WhatCountsAsInFront, beginningInAnOwnWindowWithNothingToldOfTheOthersItIsUnknown) {
    EXPECT_EQ(see(ownWindow), std::nullopt);
    EXPECT_EQ(see(window("one")), application("one"));
}

} // namespace
} // namespace brisklog::test
