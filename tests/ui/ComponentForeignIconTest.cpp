#include "support/TemporaryHome.h"
#include "support/screen/ScreenTest.h"

#include <QFont>
#include <QFontInfo>
#include <QIcon>
#include <QPixmap>
#include <fstream>

namespace brisklog::test {
namespace {

using ComponentForeignIcon = ScreenTest;

TEST_F(ComponentForeignIcon, withTextInItIsDrawnWithoutAComplaintOfTheToolkit) {
    const TemporaryHome home;
    const auto file = home.path() / "icon.svg";
    std::ofstream(file) << "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='32'>"
                           "<text x='1' y='30'><tspan style='font-size:40px'>A</tspan></text></svg>";
    const QImage drawn = QIcon(QString::fromStdString(file.string())).pixmap(32, 32).toImage();
    bool isInked = false;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            isInked = isInked || drawn.pixelColor(x, y).alpha() > 128;
    EXPECT_TRUE(isInked);
}

TEST_F(ComponentForeignIcon, needsAFontInPointsWhichIsAsLargeAsOurs) {
    EXPECT_EQ(QFont().pixelSize(), -1);
    EXPECT_EQ(QFontInfo(QFont()).pixelSize(), 13);
}

} // namespace
} // namespace brisklog::test
