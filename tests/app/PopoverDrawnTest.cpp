// What the popover itself draws: its frame, the navigation, and the strip of the window without a panel.

#include "app/WholeProgram.h"
#include "support/screen/Drawing.h"
#include "support/screen/Strokes.h"
#include "ui/look/Palette.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class PopoverDrawn : public WholeProgram {
protected:
    void expectPopover(const QString& name) { expectDrawn(*app.popover(), name); }
};

TEST_F(PopoverDrawn, itsFrameAroundTheNavigationAndTheProjects) {
    statusItem->click();
    settle();
    expectPopover(u"popover"_s);
}

TEST_F(PopoverDrawn, withoutAPanelItIsAWindowWithAStripButNoFrame) {
    hasStatusItem = false;
    app.open();
    settle();
    expectPopover(u"fenster"_s);
}

TEST_F(PopoverDrawn, itsFrameKeepsTheDesktopsAppearanceAtLaunch) {
    statusItem->click();
    settle();
    const auto frame = [this] { return strokesOf(*app.popover()).back().color; };
    EXPECT_EQ(frame(), withOpacity(Palette::of(ColorScheme::light).secondary, 0.3));
    app.popover()->setAppearance(ColorScheme::dark);
    EXPECT_EQ(frame(), withOpacity(Palette::of(ColorScheme::dark).secondary, 0.3));
    EXPECT_EQ(Palette::current().scheme, ColorScheme::light);
}

TEST_F(PopoverDrawn, theQuestionBeforeQuitting) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    app.quit();
    settle();
    expectDrawn(*QApplication::activeModalWidget(), u"hinweis-beenden"_s);
}

} // namespace
} // namespace brisklog::test
