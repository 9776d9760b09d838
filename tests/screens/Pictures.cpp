#include "screens/Pictures.h"

#include "support/screen/Drawing.h"
#include "support/screen/ScreenTest.h"
#include "ui/look/Palette.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

void keep(const QImage& image, const QString& name) {
    const QString folder = qEnvironmentVariable("BRISKLOG_PICTURES");
    if (folder.isEmpty())
        return;
    EXPECT_TRUE(image.save(u"%1/%2.png"_s.arg(folder, name)));
}

bool isPlain(const QImage& image) {
    QImage oneColor(image.size(), image.format());
    oneColor.fill(image.pixelColor(0, 0));
    return image == oneColor;
}

} // namespace

void takePicturesOnly(QWidget& window, const QString& name, const std::optional<QPoint>& groundAt) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        applyColorScheme(scheme);
        settle();
        for (const int pixelRatio : {1, 2}) {
            const QImage image = picture(window, pixelRatio);
            EXPECT_EQ(image.size(), window.size() * pixelRatio) << name.toStdString();
            EXPECT_FALSE(isPlain(image)) << name.toStdString();
            if (groundAt) {
                EXPECT_EQ(image.pixelColor(*groundAt * pixelRatio), Palette::of(scheme).ground)
                    << name.toStdString();
            }
            if (pixelRatio == 2)
                keep(image, name + (scheme == ColorScheme::light ? u"-light"_s : u"-dark"_s));
        }
    }
    applyColorScheme(ColorScheme::light);
}

void takePictures(QWidget& window, const QString& name, const std::optional<QPoint>& groundAt) {
    takePicturesOnly(window, name, groundAt);
    expectDrawn(window, name);
}

} // namespace brisklog::test
