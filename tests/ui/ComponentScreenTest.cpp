#include "ui/sheets/Screen.h"

#include "support/screen/ScreenTest.h"

#include <optional>

namespace brisklog::test {
namespace {

class Counter final : public ObservableObject {};

class CountingScreen final : public Screen {
public:
    explicit CountingScreen(ObservableObject& object) { observe(object); }

    using Screen::refreshSoon;

    int refreshes = 0;
    int paints = 0;
    std::optional<int> refreshesBeforeFirstPaint;

protected:
    void refresh() override { ++refreshes; }

    void paintEvent(QPaintEvent*) override {
        if (paints++ == 0)
            refreshesBeforeFirstPaint = refreshes;
    }
};

/// Counts its refreshes where they can still be read when it is gone.
class TellingScreen final : public Screen {
public:
    TellingScreen(ObservableObject& object, int& refreshes) : m_refreshes(refreshes) { observe(object); }

protected:
    void refresh() override { ++m_refreshes; }

private:
    int& m_refreshes;
};

class ComponentScreen : public ScreenTest {
protected:
    Counter object;
    CountingScreen screen{object};
};

TEST_F(ComponentScreen, isRefreshedBeforeItsFirstPaint) {
    showActive(screen);
    EXPECT_EQ(screen.refreshesBeforeFirstPaint, 1);
    EXPECT_EQ(screen.refreshes, 1);
}

TEST_F(ComponentScreen, isRefreshedOnceForManyAnnouncements) {
    showActive(screen);
    for (int i = 0; i < 50; ++i)
        object.announce();
    EXPECT_EQ(screen.refreshes, 1);
    settle();
    EXPECT_EQ(screen.refreshes, 2);
    settle();
    EXPECT_EQ(screen.refreshes, 2);
}

TEST_F(ComponentScreen, isNeverRefreshedWhileHidden) {
    object.announce();
    settle();
    EXPECT_EQ(screen.refreshes, 0);
    showActive(screen);
    screen.hide();
    object.announce();
    settle();
    EXPECT_EQ(screen.refreshes, 1);
}

TEST_F(ComponentScreen, catchesUpWhenShownAgain) {
    showActive(screen);
    screen.hide();
    object.announce();
    screen.show();
    EXPECT_EQ(screen.refreshes, 2);
    settle();
    EXPECT_EQ(screen.refreshes, 2);
}

TEST_F(ComponentScreen, isNotRefreshedAgainWhenShownWithoutAChange) {
    showActive(screen);
    screen.hide();
    screen.show();
    settle();
    EXPECT_EQ(screen.refreshes, 1);
}

TEST_F(ComponentScreen, hiddenBetweenAnnouncementAndRefreshWaitsUntilShown) {
    showActive(screen);
    object.announce();
    screen.hide();
    settle();
    EXPECT_EQ(screen.refreshes, 1);
    screen.show();
    EXPECT_EQ(screen.refreshes, 2);
}

TEST_F(ComponentScreen, asksForARefreshOfItsOwnState) {
    showActive(screen);
    screen.refreshSoon();
    screen.refreshSoon();
    settle();
    EXPECT_EQ(screen.refreshes, 2);
}

TEST_F(ComponentScreen, insideAHiddenOneIsNotRefreshed) {
    QWidget page;
    auto* inner = new CountingScreen(object);
    inner->setParent(&page);
    object.announce();
    settle();
    EXPECT_EQ(inner->refreshes, 0);
    showActive(page);
    EXPECT_EQ(inner->refreshes, 1);
}

TEST_F(ComponentScreen, mayGoBeforeTheObjectItObserves) {
    int refreshes = 0;
    {
        TellingScreen brief(object, refreshes);
        showActive(brief);
        object.announce();
    }
    settle();
    object.announce();
    settle();
    EXPECT_EQ(refreshes, 1) << "refreshed by what was announced before it went";
}

} // namespace
} // namespace brisklog::test
