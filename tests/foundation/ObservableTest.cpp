#include "foundation/Observable.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

namespace brisklog::test {
namespace {

class Thing final : public ObservableObject {
public:
    Published<int> number{*this, 1};
    Published<std::string> text{*this, "a", [this] { hookSaw = text.get(); }};

    std::string hookSaw;
};

TEST(Observable, everyWriteAnnouncesEqualOrNot) {
    Thing thing;
    int told = 0;
    const Subscription subscription = thing.observe([&told] { ++told; });
    thing.number = 2;
    thing.number = 2;
    thing.text.mutate([](std::string&) {});
    EXPECT_EQ(told, 3);
}

TEST(Observable, observersAreToldBeforeTheValueChangesAndTheHookRunsAfter) {
    Thing thing;
    std::vector<std::string> order;
    const Subscription subscription = thing.observe(
        [&] { order.push_back("told at " + thing.text.get() + ", hook saw " + thing.hookSaw); });
    thing.text = "b";
    thing.text = "c";
    EXPECT_EQ(order, (std::vector<std::string>{"told at a, hook saw ", "told at b, hook saw b"}));
    EXPECT_EQ(thing.hookSaw, "c");
}

TEST(Observable, revisionGrowsWithEveryWriteOfThatValue) {
    Thing thing;
    const auto before = thing.number.revision();
    thing.text = "b";
    EXPECT_EQ(thing.number.revision(), before);
    thing.number = 1;
    EXPECT_GT(thing.number.revision(), before);
}

TEST(Observable, observersAreToldInTheOrderInWhichTheyCame) {
    Thing thing;
    std::string order;
    const Subscription first = thing.observe([&order] { order += '1'; });
    const Subscription second = thing.observe([&order] { order += '2'; });
    const Subscription third = thing.observe([&order] { order += '3'; });
    thing.announce();
    EXPECT_EQ(order, "123");
}

TEST(Observable, endedSubscriptionIsNotTold) {
    Thing thing;
    int told = 0;
    {
        const Subscription subscription = thing.observe([&told] { ++told; });
        thing.announce();
    }
    thing.announce();
    EXPECT_EQ(told, 1);
}

TEST(Observable, movedSubscriptionStaysAndAReplacedOneEnds) {
    Thing thing;
    std::string order;
    Subscription kept = thing.observe([&order] { order += 'a'; });
    Subscription moved = std::move(kept);
    thing.announce();
    moved = thing.observe([&order] { order += 'b'; });
    thing.announce();
    moved = Subscription();
    thing.announce();
    EXPECT_EQ(order, "ab");
}

TEST(Observable, observerMayEndItselfAndOthersDuringAnAnnouncement) {
    Thing thing;
    std::string order;
    Subscription second;
    Subscription first = thing.observe([&] {
        order += '1';
        first = Subscription();
        second = Subscription();
    });
    second = thing.observe([&order] { order += '2'; });
    const Subscription third = thing.observe([&order] { order += '3'; });
    thing.announce();
    thing.announce();
    EXPECT_EQ(order, "133");
}

TEST(Observable, observerThatComesDuringAnAnnouncementIsToldFromTheNextOne) {
    Thing thing;
    int told = 0;
    std::vector<Subscription> added;
    const Subscription first = thing.observe([&] { added.push_back(thing.observe([&told] { ++told; })); });
    thing.announce();
    EXPECT_EQ(told, 0);
    thing.announce();
    EXPECT_EQ(told, 1);
}

TEST(Observable, observerMayAnnounceAgain) {
    Thing thing;
    int told = 0;
    const Subscription subscription = thing.observe([&] {
        if (++told < 5)
            thing.number = told;
    });
    thing.number = 0;
    EXPECT_EQ(told, 5);
}

TEST(Observable, subscriptionMayOutliveTheObject) {
    auto thing = std::make_unique<Thing>();
    const auto captured = std::make_shared<int>();
    std::optional<Subscription> subscription = thing->observe([captured] {});
    EXPECT_EQ(captured.use_count(), 2);
    thing.reset();
    EXPECT_EQ(captured.use_count(), 1) << "the observer outlives the object";
    subscription.reset();
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(Observable, observerMayDestroyTheObjectAndNobodyIsToldAfterwards) {
    auto thing = std::make_unique<Thing>();
    int told = 0;
    const Subscription first = thing->observe([&thing] { thing.reset(); });
    const Subscription second = thing->observe([&told] { ++told; });
    thing->announce();
    EXPECT_EQ(told, 0);
}

TEST(Observable, subscriptionHeldByAnObserverOfTheSameObjectEndsWithIt) {
    Thing thing;
    int told = 0;
    auto inner = std::make_shared<Subscription>(thing.observe([&told] { ++told; }));
    Subscription outer = thing.observe([inner] {});
    inner.reset();
    thing.announce();
    outer = Subscription();
    thing.announce();
    EXPECT_EQ(told, 1);
}

TEST(Observable, publishedValueReadsLikeTheValue) {
    Thing thing;
    EXPECT_EQ(thing.text->size(), 1U);
    EXPECT_EQ(*thing.text, "a");
    const std::string& text = thing.text;
    EXPECT_EQ(text, "a");
    EXPECT_EQ(thing.number + 1, 2);
}

} // namespace
} // namespace brisklog::test
