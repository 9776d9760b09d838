#include "app/AppDelegate.h"
#include "support/MemoryUserDefaults.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace brisklog::test {
namespace {

/// What the delegate did, in order.
using Record = std::vector<std::string>;

class RecordingPopover final : public Popover {
public:
    explicit RecordingPopover(Record& record) : m_record(record) { m_record.emplace_back("popover made"); }

    [[nodiscard]] bool isShown() const override { return m_isShown; }

    void show(const std::optional<ScreenRectangle>& anchor) override {
        m_isShown = true;
        m_record.push_back(anchor ? "shown at " + std::to_string(anchor->x) : "shown");
    }

    void close() override {
        m_isShown = false;
        m_record.emplace_back("closed");
    }

    void setAppearance(ColorScheme appearance) override {
        m_record.emplace_back(appearance == ColorScheme::dark ? "dark" : "light");
    }

    void loadContent() override { m_record.emplace_back("content loaded"); }

private:
    Record& m_record;
    bool m_isShown = false;
};

class RecordingStatusItem final : public StatusItem {
public:
    explicit RecordingStatusItem(Record& record) : m_record(record) {
        m_record.emplace_back("status item made");
    }

    void setDescription(const std::string& description) override { m_record.push_back(description); }

    void setAction(std::function<void()> action) override { click = std::move(action); }

    void addMenuEntry(const std::string& caption, std::function<void()> /*action*/) override {
        m_record.push_back(caption);
    }

    [[nodiscard]] bool isReachable() const override { return true; }

    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override {
        return ScreenRectangle{700, 0, 22, 22};
    }

    std::function<void()> click;

private:
    Record& m_record;
};

class SystemAppearanceToAnswer final : public SystemAppearance {
public:
    void ask(Answer answered) override { answer = std::move(answered); }

    Answer answer;
};

class AppDelegateTest : public testing::Test {
protected:
    Record record;
    MemoryUserDefaults userDefaults;
    SystemAppearanceToAnswer appearance;
    RecordingStatusItem* statusItem = nullptr;
    AppDelegate delegate{{.userDefaults = userDefaults,
                          .systemAppearance = appearance,
                          .makePopover = [this] { return std::make_unique<RecordingPopover>(record); },
                          .makeStatusItem =
                              [this] {
                                  auto item = std::make_unique<RecordingStatusItem>(record);
                                  statusItem = item.get();
                                  return item;
                              }}};
};

TEST_F(AppDelegateTest, launchMakesThePopoverThenItsContentThenTheStatusItemAndLeavesItClosed) {
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(record,
              (Record{"popover made", "light", "content loaded", "status item made", "Zeiterfassung"}));
}

TEST_F(AppDelegateTest, clickingTheStatusItemTwiceOpensAndClosesThePopover) {
    delegate.applicationDidFinishLaunching();
    record.clear();
    statusItem->click();
    statusItem->click();
    EXPECT_EQ(record, (Record{"shown at 700", "closed"}));
}

TEST_F(AppDelegateTest, togglingBeforeLaunchDoesNothing) {
    delegate.togglePopover();
    delegate.openPopover();
    EXPECT_TRUE(record.empty());
}

TEST_F(AppDelegateTest, openingAnOpenPopoverLeavesItOpen) {
    delegate.applicationDidFinishLaunching();
    delegate.openPopover();
    record.clear();
    delegate.openPopover();
    EXPECT_EQ(record, Record{"shown at 700"});
}

TEST_F(AppDelegateTest, aStoredAppearanceOfDarkGivesTheDarkPopoverAndNobodyElseIsAsked) {
    userDefaults.setValue("AppleInterfaceStyle", std::string("Dark"));
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(record.at(1), "dark");
    EXPECT_FALSE(appearance.answer);
}

TEST_F(AppDelegateTest, aStoredAppearanceInLowerCaseGivesTheLightPopover) {
    userDefaults.setValue("AppleInterfaceStyle", std::string("dark"));
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(record.at(1), "light");
    EXPECT_FALSE(appearance.answer);
}

TEST_F(AppDelegateTest, aStoredAppearanceThatIsNoTextGivesTheLightPopover) {
    userDefaults.setValue("AppleInterfaceStyle", true);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(record.at(1), "light");
}

TEST_F(AppDelegateTest, withoutAStoredValueTheDesktopDecidesOnceItHasAnswered) {
    delegate.applicationDidFinishLaunching();
    record.clear();
    appearance.answer(ColorScheme::dark);
    EXPECT_EQ(record, Record{"dark"});
}

} // namespace
} // namespace brisklog::test
