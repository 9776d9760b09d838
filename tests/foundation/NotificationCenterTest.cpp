#include "foundation/NotificationCenter.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(NotificationCenter, everyObserverOfANameIsTold) {
    NotificationCenter center;
    std::string told;
    const Subscription first = center.observe("Open", [&told] { told += '1'; });
    const Subscription second = center.observe("Open", [&told] { told += '2'; });
    const Subscription other = center.observe("Close", [&told] { told += 'x'; });
    center.post("Open");
    EXPECT_EQ(told, "12");
}

TEST(NotificationCenter, whatIsPostedWithoutObserversReachesNoLaterOne) {
    NotificationCenter center;
    int told = 0;
    center.post("Open");
    const Subscription later = center.observe("Open", [&told] { ++told; });
    EXPECT_EQ(told, 0);
    center.post("Open");
    EXPECT_EQ(told, 1);
}

TEST(NotificationCenter, endedSubscriptionIsNotTold) {
    NotificationCenter center;
    int told = 0;
    {
        const Subscription subscription = center.observe("Open", [&told] { ++told; });
        center.post("Open");
    }
    center.post("Open");
    EXPECT_EQ(told, 1);
}

TEST(NotificationCenter, observerMayPostAndObserveFurtherNames) {
    NotificationCenter center;
    int told = 0;
    std::vector<Subscription> later;
    const Subscription first = center.observe("Open", [&] {
        for (int i = 0; i < 100; ++i)
            later.push_back(center.observe("Name " + std::to_string(i), [&told] { ++told; }));
        center.post("Name 99");
    });
    center.post("Open");
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace brisklog::test
