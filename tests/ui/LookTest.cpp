#include "ui/look/Look.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/CheckBox.h"
#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QPainter>

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
