#include "platform/linux/ToplevelStates.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::IsNull;
using testing::Pointee;

constexpr ToplevelStates::Window one = 1;
constexpr ToplevelStates::Window two = 2;

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
    states.setApplicationId(one, "one");
    states.apply(one);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, whatIsToldCountsOnceApplied) {
    ToplevelStates states;
    states.setActive(one, true);
    states.setApplicationId(one, "one");
    EXPECT_THAT(states.inFront(), IsNull());
    states.apply(one);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.setActive(one, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.apply(one);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, ofTwoActiveWindowsTheOneActivatedLastIsInFront) {
    ToplevelStates states;
    show(states, two, "two");
    show(states, one, "one");
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    setActive(states, two, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    setActive(states, two, true);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
    setActive(states, one, false);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
}

TEST(ToplevelStates, aWindowToldToBeActiveOnceMoreIsNotActivatedAnew) {
    ToplevelStates states;
    show(states, one, "one");
    show(states, two, "two");
    setActive(states, one, true);
    EXPECT_THAT(states.inFront(), Pointee(std::string("two")));
}

TEST(ToplevelStates, closingTheWindowInFrontBringsBackTheOtherActiveOne) {
    ToplevelStates states;
    show(states, one, "one");
    show(states, two, "two");
    states.close(two);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
    states.close(one);
    EXPECT_THAT(states.inFront(), IsNull());
    states.close(one);
    EXPECT_THAT(states.inFront(), IsNull());
}

TEST(ToplevelStates, aNewApplicationIdOfTheWindowInFrontIsNoticed) {
    ToplevelStates states;
    show(states, one, "");
    EXPECT_THAT(states.inFront(), Pointee(std::string()));
    states.setApplicationId(one, "one");
    states.apply(one);
    EXPECT_THAT(states.inFront(), Pointee(std::string("one")));
}

} // namespace
} // namespace brisklog::test
