#include "app/WholeProgram.h"
#include "overview/screens/DayDetailWindow.h"
#include "support/screen/Windows.h"
#include "ui/look/Palette.h"

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class ProgramThatTracks : public WholeProgram {
protected:
    void openTab() {
        statusItem->click();
        settle();
        click(u"Auto-Tracking"_s);
    }

    void use(const std::string& name, TimeInterval seconds) {
        frontmost.show(name, "org." + name);
        runLoop.advance(seconds);
        settle();
    }

    [[nodiscard]] std::string stored() const {
        return dataValue(userDefaults, "autoTrackingData").value_or("nothing");
    }

    [[nodiscard]] static std::vector<DayDetailWindow*> dayWindows() {
        return visibleWindows<DayDetailWindow>();
    }
};

TEST_F(ProgramThatTracks, doesNothingUntilItIsSwitchedOn) {
    openTab();
    EXPECT_FALSE(frontmost.isWatched);
    EXPECT_EQ(frontmost.timesAsked, 0);
}

TEST_F(ProgramThatTracks, goesOnWithThePopoverClosed) {
    openTab();
    click(u"Automatische Zeiterfassung"_s);
    use("Editor", 60);
    app.popover()->close();
    use("Browser", 5);
    use("Editor", 5);
    EXPECT_FALSE(app.popover()->isShown());
    EXPECT_TRUE(frontmost.isWatched);
    EXPECT_NE(stored().find("\"Browser\""), std::string::npos);
}

TEST_F(ProgramThatTracks, windowOfADayOutlivesThePopover) {
    openTab();
    click(u"Automatische Zeiterfassung"_s);
    use("Editor", 60);
    click(u"Automatische Zeiterfassung"_s);
    click(u"15. November 2026, mit Daten"_s);
    ASSERT_EQ(dayWindows().size(), 1U);
    EXPECT_EQ(dayWindows()[0]->windowTitle(), u"App-Nutzung: 15.11.2026"_s);
    app.popover()->close();
    settle();
    EXPECT_EQ(dayWindows().size(), 1U);
    app.settings().colorScheme = ColorSchemeOption::dark;
    turn();
    EXPECT_EQ(dayWindows()[0]->grab().toImage().pixelColor(4, 70), Palette::of(ColorScheme::dark).ground);
    app.settings().colorScheme = ColorSchemeOption::light;
    turn();
}

class ProgramThatWasTracking : public WholeProgram {
protected:
    ProgramThatWasTracking()
        : WholeProgram([](MemoryUserDefaults& stored, FakeFrontmostApplication& desktop) {
              stored.setValue("autoTrackingEnabled", true);
              desktop.show("Editor", "org.editor");
          }) {}
};

TEST_F(ProgramThatWasTracking, resumesAtLaunchBeforeAnythingIsShown) {
    EXPECT_FALSE(app.popover()->isShown());
    EXPECT_TRUE(frontmost.isWatched);
    const int asked = frontmost.timesAsked;
    EXPECT_GT(asked, 0);
    runLoop.advance(3);
    EXPECT_EQ(frontmost.timesAsked, asked + 3);
}

} // namespace
} // namespace brisklog::test
