// Choosing a logo in the picker, by pointer and by keyboard, and what cannot be chosen.

#include "screens/profile/LogoPickerBench.h"
#include "support/PdfPictures.h"
#include "support/screen/ScreenReader.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::IsEmpty;

using LogoPickerChoice = LogoPickerBench;

// By pointer

TEST_F(LogoPickerChoice, aClickOnAnImageChoosesItAndClosesTheWindow) {
    addPicture("Logo.png", 1600, 400);
    open();
    click(0);
    settle();
    ASSERT_EQ(chosen.size(), 1U);
    const QImage logo = QImage::fromData(QByteArray::fromStdString(chosen[0]));
    EXPECT_EQ(logo.size(), QSize(800, 200));
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(host.focusReturns, 1);
}

TEST_F(LogoPickerChoice, whateverIsChosenAPngOfAtMostEightHundredIsKept) {
    const QImage wide = fourQuarters(1600, 400);
    const QImage opaque = wide.convertToFormat(QImage::Format_RGB32);
    const std::vector<std::pair<std::string, QSize>> logos{
        {encoded(wide, "PNG"), {800, 200}},
        {encoded(fourQuarters(400, 1600), "PNG"), {200, 800}},
        {encoded(fourQuarters(800, 800), "PNG"), {800, 800}},
        {encoded(fourQuarters(3, 2), "BMP"), {3, 2}},
        {encoded(opaque, "JPEG"), {800, 200}},
        {encoded(opaque.scaled(300, 75), "JPEG"), {300, 75}},
        {encoded(wide, "TIFF"), {800, 200}},
        // From a camera held sideways: the size as displayed counts.
        {turnedJpeg(opaque, 6), {200, 800}},
        {smallGif(), {2, 2}},
    };
    for (std::size_t number = 0; number < logos.size(); ++number) {
        chosen.clear();
        writeFile(folder() / "Logo.png", logos[number].first);
        open();
        click(0);
        settle();
        ASSERT_EQ(chosen.size(), 1U) << number;
        EXPECT_TRUE(chosen[0].starts_with("\x89PNG")) << number;
        EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(chosen[0])).size(), logos[number].second)
            << number;
    }
}

TEST_F(LogoPickerChoice, anImageThatFitsIsKeptToThePixelWithItsTransparency) {
    const QImage original = fourQuarters(800, 800);
    writeFile(folder() / "Logo.png", encoded(original, "PNG"));
    open();
    click(0);
    settle();
    ASSERT_EQ(chosen.size(), 1U);
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(chosen[0])).convertToFormat(original.format()),
              original);
}

TEST_F(LogoPickerChoice, scalingKeepsTransparency) {
    addPicture("Logo.png", 1600, 400);
    open();
    click(0);
    settle();
    const QImage logo = QImage::fromData(QByteArray::fromStdString(chosen.at(0)));
    EXPECT_EQ(logo.pixelColor(10, 10), QColor(Qt::red));
    EXPECT_EQ(logo.pixelColor(790, 190), QColor(255, 255, 255, 128));
}

TEST_F(LogoPickerChoice, aCompletionMayCloseTheWindowItself) {
    addPicture("Logo.png");
    controller.present("Logo auswählen", [this](const std::string& bytes) {
        chosen.push_back(bytes);
        controller.close();
    });
    finish();
    click(0);
    settle();
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(host.focusReturns, 1);
}

TEST_F(LogoPickerChoice, aClickOnAFolderOpensItAndTheArrowLeadsBackToIt) {
    fs::create_directories(folder() / "Akten");
    addPicture("Kunden/Blau.png");
    open();
    click(1);
    finish();
    EXPECT_TRUE(shows(u"Kunden"_s));
    EXPECT_EQ(names(), QStringList{u"Blau.png"_s});
    button(u"Übergeordneter Ordner"_s).click();
    finish();
    EXPECT_EQ(names(), (QStringList{u"Akten"_s, u"Kunden"_s}));
    EXPECT_EQ(tiles().currentIndex().row(), 1);
}

TEST_F(LogoPickerChoice, aDoubleClickOnAFolderDoesNotChooseWhatLiesUnderThePointerThen) {
    addPicture("Kunden/Blau.png");
    open();
    const QPoint place = cell(0).center();
    QTest::mouseClick(tiles().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    finish();
    EXPECT_EQ(names(), QStringList{u"Blau.png"_s});
    for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent second(type, place, tiles().viewport()->mapToGlobal(place), Qt::LeftButton,
                           type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                           Qt::NoModifier);
        QApplication::sendEvent(tiles().viewport(), &second);
    }
    settle();
    EXPECT_THAT(chosen, IsEmpty());
    click(0);
    settle();
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(LogoPickerChoice, onlyTheFirstMouseButtonChooses) {
    addPicture("Logo.png");
    open();
    for (const auto other : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(tiles().viewport(), other, Qt::NoModifier, cell(0).center());
    QTest::mouseClick(tiles().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 300));
    settle();
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(LogoPickerChoice, whatCannotBeLoadedIsSaidAndTheWindowStays) {
    writeFile(folder() / "a Text.png", "Das ist ein Text.");
    writeFile(folder() / "b cut.jpg", jpegImage(300, 300).substr(0, 1500));
    writeFile(folder() / "c huge.png", hugePng());
    writeFile(folder() / "d vector.png", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    fs::create_symlink("e circle.png", folder() / "e circle.png");
    addPicture("f gone.png");
    open();
    fs::remove(folder() / "f gone.png");
    EXPECT_EQ(names().size(), 6);
    for (int row = 0; row < 6; ++row) {
        click(row);
        settle();
        EXPECT_TRUE(shows(u"Konnte das Bild nicht laden"_s)) << row;
        EXPECT_NE(window(), nullptr);
    }
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(names().size(), 6);
}

TEST_F(LogoPickerChoice, aFolderThatHasVanishedIsSaid) {
    fs::create_directories(folder() / "Alt");
    open();
    fs::remove_all(folder() / "Alt");
    ScreenReader reader;
    click(0);
    finish();
    const QString error = u"Fehler beim Laden des Verzeichnisses: "_s +
                          QString::fromStdString((folder() / "Alt").string()) +
                          u": No such file or directory"_s;
    EXPECT_TRUE(shows(error));
    EXPECT_EQ(reader.announced(), QStringList{error});
    EXPECT_EQ(tiles().model()->rowCount(), 0);
    EXPECT_FALSE(shows(u"Hier liegen keine Bilder"_s));
    button(u"Übergeordneter Ordner"_s).click();
    finish();
    EXPECT_FALSE(shows(u"Fehler beim Laden des Verzeichnisses: "_s));
    EXPECT_TRUE(shows(u"Hier liegen keine Bilder"_s));
}

// By keyboard

TEST_F(LogoPickerChoice, theTilesHaveTheKeyboardFromTheStart) {
    for (const char* const name : {"a.png", "b.png", "c.png", "d.png", "e.png", "f.png"})
        addPicture(name);
    open();
    ASSERT_EQ(QApplication::focusWidget(), &tiles());
    for (const auto& [key, row] : {std::pair{Qt::Key_Right, 0},
                                   {Qt::Key_Right, 1},
                                   {Qt::Key_Down, 5},
                                   {Qt::Key_Left, 4},
                                   {Qt::Key_Up, 0},
                                   {Qt::Key_End, 5},
                                   {Qt::Key_Home, 0}}) {
        QTest::keyClick(&tiles(), key);
        EXPECT_EQ(tiles().currentIndex().row(), row) << key;
    }
    QTest::keyClick(&tiles(), Qt::Key_Return);
    settle();
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(window(), nullptr);
}

TEST_F(LogoPickerChoice, theTilesAreOneTabStop) {
    addPicture("a.png");
    addPicture("b.png");
    open();
    QTest::keyClick(&tiles(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button(u"Abbrechen"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button(u"Übergeordneter Ordner"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &tiles());
    EXPECT_TRUE(tiles().showsFocusRing());
    EXPECT_EQ(tiles().currentIndex().row(), 0);
}

TEST_F(LogoPickerChoice, whoWalksTheFoldersByKeyboardKeepsIt) {
    addPicture("Kunden/Blau/Logo.png");
    open();
    for (const char* const entered : {"Kunden", "Blau"}) {
        QTest::keyClick(&tiles(), Qt::Key_Right);
        QTest::keyClick(&tiles(), Qt::Key_Return);
        finish();
        EXPECT_TRUE(shows(QString::fromUtf8(entered)));
        EXPECT_EQ(QApplication::focusWidget(), &tiles());
        EXPECT_EQ(tiles().currentIndex().row(), 0);
    }
    QTest::keyClick(&tiles(), Qt::Key_Enter);
    settle();
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(LogoPickerChoice, returnWithNothingCurrentDoesNothing) {
    addPicture("a.png");
    open();
    QTest::keyClick(&tiles(), Qt::Key_Return);
    settle();
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_NE(window(), nullptr);
}

} // namespace
} // namespace brisklog::test
