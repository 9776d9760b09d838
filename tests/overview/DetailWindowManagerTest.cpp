#include "overview/DetailWindowManager.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

struct SomeWindow final : DetailWindowController {
    [[nodiscard]] bool isWindowVisible() const override { return isVisible; }

    bool isVisible = true;
};

class DetailWindows : public ::testing::Test {
protected:
    std::shared_ptr<SomeWindow> add(const std::string& key) {
        auto window = std::make_shared<SomeWindow>();
        delegates.push_back(std::make_shared<DetailWindowDelegate>());
        manager->registerWindow(window, delegates.back(), key);
        return window;
    }

    [[nodiscard]] bool knows(const std::string& key) const {
        return manager->windowControllers().contains("detailWindowController_" + key);
    }

    std::unique_ptr<DetailWindowManager> manager = std::make_unique<DetailWindowManager>();
    std::vector<std::shared_ptr<DetailWindowDelegate>> delegates;
};

TEST_F(DetailWindows, areKeptAliveWhileKnown) {
    const std::weak_ptr<SomeWindow> window = add("a");
    EXPECT_FALSE(window.expired());
    delegates[0]->windowWillClose();
    EXPECT_TRUE(window.expired());
    EXPECT_FALSE(knows("a"));
}

TEST_F(DetailWindows, thatAreNoLongerVisibleGoAtTheNextRegistration) {
    const auto hidden = add("a");
    add("b");
    hidden->isVisible = false;
    EXPECT_TRUE(knows("a"));
    add("c");
    EXPECT_FALSE(knows("a"));
    EXPECT_TRUE(knows("b"));
    EXPECT_TRUE(knows("c"));
}

TEST_F(DetailWindows, laterOneTakesThePlaceOfTheSameKey) {
    const std::weak_ptr<SomeWindow> first = add("a");
    const auto second = add("a");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(manager->windowControllers().size(), 1U);
    EXPECT_EQ(manager->windowControllers().begin()->second.controller, second);
}

TEST_F(DetailWindows, goWithTheManagerAndMayStillCloseAfterwards) {
    const std::weak_ptr<SomeWindow> window = add("a");
    manager.reset();
    EXPECT_TRUE(window.expired()) << "kept by what is to happen when it closes";
    EXPECT_NO_THROW(delegates[0]->windowWillClose());
    EXPECT_EQ(delegates[0].use_count(), 1);
}

TEST_F(DetailWindows, closingTwiceIsHarmless) {
    add("a");
    delegates[0]->windowWillClose();
    delegates[0]->windowWillClose();
    EXPECT_FALSE(knows("a"));
}

TEST(DetailWindowDelegateTest, withoutAnActionNothingHappens) {
    EXPECT_NO_THROW(DetailWindowDelegate().windowWillClose());
}

} // namespace
} // namespace brisklog::test
