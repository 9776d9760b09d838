#include "ui/look/Look.h"

#include "support/screen/Drawing.h"
#include "support/screen/RoleNames.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/CheckBox.h"
#include "ui/look/Palette.h"
#include "ui/look/Pointer.h"
#include "ui/look/Typography.h"

#include <QPainter>
#include <QTest>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class LookTest : public ScreenTest {
protected:
    LookTest() { clear(); }

    ~LookTest() override { clear(); }

    static void clear() {
        qunsetenv("BRISKLOG_REDUCED_MOTION");
        qunsetenv("GTK_ENABLE_ANIMATIONS");
    }
};

TEST_F(LookTest, thingsMoveUnlessTheUserWantsThemStill) {
    EXPECT_EQ(motionFromEnvironment(), Motion::full);
    for (const char* still : {"1", "yes"}) {
        qputenv("BRISKLOG_REDUCED_MOTION", still);
        EXPECT_EQ(motionFromEnvironment(), Motion::reduced) << still;
    }
    for (const char* moving : {"0", ""}) {
        qputenv("BRISKLOG_REDUCED_MOTION", moving);
        EXPECT_EQ(motionFromEnvironment(), Motion::full) << moving;
    }
}

TEST_F(LookTest, thingsAreStillWhereTheDesktopsProgramsAre) {
    qputenv("GTK_ENABLE_ANIMATIONS", "0");
    EXPECT_EQ(motionFromEnvironment(), Motion::reduced);
    for (const char* moving : {"1", ""}) {
        qputenv("GTK_ENABLE_ANIMATIONS", moving);
        EXPECT_EQ(motionFromEnvironment(), Motion::full) << moving;
    }
}

TEST_F(LookTest, everyRoleHasItsFontAndItsColours) { expectAcceptedText(tableOfRoles(), u"rollen"_s); }

TEST_F(LookTest, whatTheToolkitPaintsItselfHasOurColours) {
    const Palette& palette = Palette::current();
    const QPalette toolkit = toolkitPalette(palette);
    for (const auto& [role, color] :
         {std::pair{QPalette::Window, palette.ground}, std::pair{QPalette::WindowText, palette.text},
          std::pair{QPalette::Base, palette.field}, std::pair{QPalette::Text, palette.text},
          std::pair{QPalette::Button, palette.card}, std::pair{QPalette::ButtonText, palette.text},
          std::pair{QPalette::Highlight, palette.blueFill},
          std::pair{QPalette::HighlightedText, palette.white}, std::pair{QPalette::Link, palette.blue},
          std::pair{QPalette::ToolTipBase, palette.tooltip},
          std::pair{QPalette::ToolTipText, palette.tooltipText}})
        EXPECT_EQ(toolkit.color(role), color) << role;
}

class ReleaseTest : public ScreenTest {
protected:
    ReleaseTest() { showActive(window); }

    QWidget window;
    int calls = 0;
};

TEST_F(ReleaseTest, withoutAButtonDownItRunsAtOnce) {
    onceNoButtonIsDown(window, [this] { ++calls; });
    EXPECT_EQ(calls, 1);
}

TEST_F(ReleaseTest, itWaitsForTheLastButton) {
    QTest::mousePress(&window, Qt::LeftButton);
    QTest::mousePress(&window, Qt::RightButton);
    onceNoButtonIsDown(window, [this] { ++calls; });
    settle();
    QTest::keyClick(&window, Qt::Key_A);
    QTest::mouseRelease(&window, Qt::RightButton);
    settle();
    EXPECT_EQ(calls, 0);
    QTest::mouseRelease(&window, Qt::LeftButton);
    settle();
    EXPECT_EQ(calls, 1);
}

TEST_F(LookTest, textsAreSetInInterWhereItIsInstalled) {
    EXPECT_EQ(fontFor(FontRole::body13).families(),
              (QStringList{u"Inter"_s, u"Liberation Sans"_s, u"DejaVu Sans"_s, u"sans-serif"_s}));
}

TEST_F(LookTest, aTickStandsInTheMiddleOfItsPlace) {
    QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        paintCheckBox(painter, QRect(10, 0, 40, 40), CheckBoxState::ticked, Palette::current());
    }
    QRect painted;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                painted |= QRect(x, y, 1, 1);
    EXPECT_EQ(painted, QRect(22, 12, 16, 16));
}

} // namespace
} // namespace brisklog::test
