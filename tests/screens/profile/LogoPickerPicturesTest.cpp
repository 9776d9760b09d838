// The logo picker as a person sees it.

#include "platform/pictures/QtImages.h"
#include "profile/screens/LogoPickerScreen.h"
#include "screens/Pictures.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/SamplePictures.h"
#include "support/TemporaryHome.h"
#include "support/VirtualBackground.h"
#include "support/screen/ScreenTest.h"
#include "ui/lists/RowList.h"

#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

class LogoPickerPictures : public ScreenTest {
protected:
    static constexpr QPoint ground{3, 490};

    void open() {
        screen =
            std::make_unique<LogoPickerScreen>(LogoPickerPlatform{files, images, folders, log}, pictures,
                                               LogoPickerView::Actions{[](const std::string&) {}, [] {}});
        screen->resize(600, 500);
        showActive(*screen);
        screen->focusTiles();
        finish();
    }

    void finish() {
        folders.runAll();
        settle();
        pictures.runAll();
        settle();
    }

    [[nodiscard]] RowList& tiles() const { return *findFirst<RowList>(*screen); }

    [[nodiscard]] fs::path folder() const { return home.path() / "Pictures"; }

    void add(const char* name, const QSize& size, const QColor& colour, const char* format = "PNG") {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour.lightness() > 128 ? colour.darker(180) : colour.lighter(220));
        painter.drawEllipse(image.rect().center(), size.height() / 4, size.height() / 4);
        painter.end();
        writeFile(folder() / name, encoded(image, format));
    }

    void fill() {
        for (const char* const name :
             {"Bildschirmfotos", "Kunden 2026", "Messestand Düsseldorf", "Urlaub Ostsee"})
            fs::create_directories(folder() / name);
        add("Bergström-Logo.png", {800, 800}, QColor(0xF2, 0xEC, 0xE0));
        add("Hintergrund Website sehr groß.jpg", {1600, 1040}, QColor(0xBC, 0xD6, 0xEA), "JPEG");
        add("Icon 512.png", {512, 512}, QColor(0x24, 0x32, 0x50));
        add("Käthe Porträt.jpeg", {520, 800}, QColor(0xE6, 0xD6, 0xCC), "JPEG");
        add("Wortmarke Käserei final_v12.tiff", {800, 400}, Qt::white, "TIFF");
        add("winzig.bmp", {16, 16}, QColor(0xC3, 0x2A, 0x3F), "BMP");
        writeFile(folder() / "Überlagerung.gif", smallGif());
        writeFile(folder() / "kaputt.png", "Das ist ein Text.");
    }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    QtImages images;
    VirtualBackground folders;
    VirtualBackground pictures;
    std::unique_ptr<LogoPickerScreen> screen;
};

TEST_F(LogoPickerPictures, someFoldersAndImages) {
    fill();
    open();
    for (int count = 0; count < 6; ++count)
        QTest::keyClick(&tiles(), Qt::Key_Right);
    takePictures(*screen, u"logo-auswahl"_s, ground);
}

TEST_F(LogoPickerPictures, empty) {
    fs::create_directories(folder());
    open();
    takePictures(*screen, u"logo-auswahl-leer"_s, ground);
}

TEST_F(LogoPickerPictures, broken) {
    fill();
    open();
    tiles().setCurrentIndex(tiles().model()->index(7, 0));
    QTest::keyClick(&tiles(), Qt::Key_Return);
    settle();
    takePictures(*screen, u"logo-auswahl-kaputt"_s, ground);
}

TEST_F(LogoPickerPictures, vanished) {
    fs::create_directories(
        folder() / "Ein Ordner mit einem Namen, der so lang ist, dass er umbricht, wenn er genannt wird");
    open();
    fs::remove_all(folder());
    tiles().setCurrentIndex(tiles().model()->index(0, 0));
    QTest::keyClick(&tiles(), Qt::Key_Return);
    finish();
    // It names a temporary folder.
    takePicturesOnly(*screen, u"logo-auswahl-fehler"_s, ground);
}

TEST_F(LogoPickerPictures, many) {
    for (int count = 0; count < 300; ++count)
        add(("Bild" + std::to_string(count) + ".png").c_str(), {90, 60},
            QColor::fromHsv(count * 7 % 360, 120, 220));
    open();
    tiles().scrollTo(tiles().model()->index(100, 0));
    settle();
    finish();
    takePictures(*screen, u"logo-auswahl-viele"_s, ground);
}

} // namespace
} // namespace brisklog::test
