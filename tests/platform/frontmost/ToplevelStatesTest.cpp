#include "platform/frontmost/ToplevelStates.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::IsNull;
using testing::Pointee;

constexpr ToplevelStates::Window firstWindow = 1;
constexpr ToplevelStates::Window secondWindow = 2;

void show(ToplevelStates& states, ToplevelStates::Window window, const std::string& id) {
    states.setApplicationId(window, id);
    states.setActive(window, true);
    states.apply(window);
}

void setActive(ToplevelStates& states, ToplevelStates::Window window, bool isActive) {
    states.setActive(window, isActive);
    states.apply(window);
}

TEST(ToplevelStates, withoutAnActiveWindowNoneIsInFront) {
    ToplevelStates states;
    EXPECT_THAT(states.inFront(), IsNull());
    states.setApplicationId(firstWindow, "one");
    states.apply(firstWindow);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, whatIsToldCountsOnceApplied) {
    ToplevelStates states;
    states.setActive(firstWindow, true);
    states.setApplicationId(firstWindow, "one");
    EXPECT_THAT(states.inFront(), IsNull());
    states.apply(firstWindow);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.setActive(firstWindow, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.apply(firstWindow);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, ofTwoActiveWindowsTheOneActivatedLastIsInFront) {
    ToplevelStates states;
    show(states, secondWindow, "two");
    show(states, firstWindow, "one");
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    setActive(states, secondWindow, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    setActive(states, secondWindow, true);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
    setActive(states, firstWindow, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
}

TEST(ToplevelStates, aWindowToldToBeActiveOnceMoreIsNotActivatedAnew) {
    ToplevelStates states;
    show(states, firstWindow, "one");
    show(states, secondWindow, "two");
    setActive(states, firstWindow, true);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
}

TEST(ToplevelStates, closingTheWindowInFrontBringsBackTheOtherActiveOne) {
    ToplevelStates states;
    show(states, firstWindow, "one");
    show(states, secondWindow, "two");
    states.close(secondWindow);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.close(firstWindow);
    EXPECT_THAT(states.inFront(), IsNull());
    states.close(firstWindow);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, aNewApplicationIdOfTheWindowInFrontIsNoticed) {
    ToplevelStates states;
    show(states, firstWindow, "");
    EXPECT_THAT(states.inFront(), Pointee(std::string()));
    states.setApplicationId(firstWindow, "one");
    states.apply(firstWindow);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
}

} // namespace
} // namespace brisklog::test
