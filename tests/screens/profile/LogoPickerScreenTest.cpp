// The logo picker's window and what it shows of the folders people have.

#include "screens/profile/LogoPickerBench.h"
#include "support/screen/Strokes.h"
#include "ui/look/Palette.h"

#include <QPointer>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::IsEmpty;

using LogoPickerScreenTest = LogoPickerBench;

// The window

TEST_F(LogoPickerScreenTest, isAWindowOfItsOwnWithItsFrame) {
    open();
    EXPECT_EQ(window()->windowTitle(), u"Logo auswählen"_s);
    EXPECT_EQ(window()->size(), QSize(600, 500));
    EXPECT_TRUE(window()->isWindow());
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(window()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_NE(window()->minimumSize(), window()->maximumSize());
    QRect middle(0, 0, 600, 500);
    middle.moveCenter(window()->screen()->availableGeometry().center());
    EXPECT_EQ(window()->pos(), middle.topLeft());
}

TEST_F(LogoPickerScreenTest, holdsThePopoverOpenAndGivesTheFocusBack) {
    EXPECT_FALSE(host.isHeldOpen());
    open();
    EXPECT_TRUE(host.isHeldOpen());
    button(u"Abbrechen"_s).click();
    settle();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(host.isHeldOpen());
    EXPECT_EQ(host.focusReturns, 1);
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(LogoPickerScreenTest, escapeClosesIt) {
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(host.isHeldOpen());
}

TEST_F(LogoPickerScreenTest, isClosedByTheWindowManagersButton) {
    open();
    window()->close();
    settle();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(host.isHeldOpen());
    controller.close();
}

TEST_F(LogoPickerScreenTest, aSecondOneTakesThePlaceOfTheFirst) {
    open();
    const QPointer<QWidget> first = window();
    open();
    EXPECT_TRUE(first.isNull());
    EXPECT_NE(window(), nullptr);
    EXPECT_TRUE(host.isHeldOpen());
}

TEST_F(LogoPickerScreenTest, closedWhileAFolderAndThumbnailsAreUnderWayItEndsCleanly) {
    addPicture("a.png");
    controller.present("Logo auswählen", [](const std::string&) { FAIL(); });
    settle();
    folders.runWithoutDelivering();
    controller.close();
    settle();
    folders.deliver();
    EXPECT_EQ(folders.waiting(), 0U);

    open();
    addPicture("b.png");
    button(u"Übergeordneter Ordner"_s).click();
    tiles().model()->rowCount();
    folders.runAll();
    settle();
    click(static_cast<int>(names().indexOf(u"Pictures"_s)));
    folders.runAll();
    settle();
    EXPECT_EQ(pictures.waiting(), 2U);
    pictures.runWithoutDelivering();
    controller.close();
    settle();
    pictures.deliver();
    EXPECT_EQ(pictures.waiting(), 0U);
}

TEST_F(LogoPickerScreenTest, goesWithThePopover) {
    auto other = std::make_unique<HostWindow>();
    showActive(*other);
    {
        LogoPickerWindowController short_lived{{.picker = {files, images, folders, log},
                                                .pictures = pictures,
                                                .parentWindow = [&]() -> QWidget* { return other.get(); }}};
        short_lived.present("Logo auswählen", [](const std::string&) {});
        other.reset();
        EXPECT_EQ(window(), nullptr);
        short_lived.close();
    }
    EXPECT_EQ(window(), nullptr);
}

// What it shows

TEST_F(LogoPickerScreenTest, saysThatAFolderIsBeingRead) {
    addPicture("Logo.png");
    controller.present("Logo auswählen", [](const std::string&) {});
    settle();
    EXPECT_TRUE(shows(u"Lade Inhalte..."_s));
    EXPECT_EQ(strokesOf(*findNamed<QLabel>(*window(), u"Lade Inhalte..."_s)).front().color,
              Palette::current().secondary);
    EXPECT_EQ(tiles().model()->rowCount(), 0);
    EXPECT_FALSE(shows(u"Hier liegen keine Bilder"_s));
    finish();
    EXPECT_FALSE(shows(u"Lade Inhalte..."_s));
    EXPECT_EQ(names(), QStringList{u"Logo.png"_s});
    EXPECT_TRUE(shows(u"Pictures"_s));
}

TEST_F(LogoPickerScreenTest, anEmptyFolderSaysWhatToDo) {
    writeFile(folder() / ".hidden.png", "");
    writeFile(folder() / "Notiz.txt", "");
    open();
    EXPECT_EQ(tiles().model()->rowCount(), 0);
    EXPECT_TRUE(shows(u"Hier liegen keine Bilder"_s));
    EXPECT_TRUE(shows(u"Mit dem Pfeil in den übergeordneten Ordner wechseln."_s));
}

TEST_F(LogoPickerScreenTest, tilesStandFourInARowAndMoreInAWiderWindow) {
    for (int count = 0; count < 10; ++count)
        addPicture("Bild" + std::to_string(count) + ".png");
    open();
    const QPoint list = tiles().viewport()->mapTo(window(), QPoint());
    EXPECT_EQ(list + cell(0).topLeft() + QPoint(4, 5), QPoint(16, 60));
    EXPECT_EQ(cell(3).topLeft() - cell(0).topLeft(), QPoint(3 * 145, 0));
    EXPECT_EQ(cell(4).topLeft() - cell(0).topLeft(), QPoint(0, 132));
    window()->resize(760, 500);
    settle();
    EXPECT_EQ(cell(4).topLeft() - cell(0).topLeft(), QPoint(4 * 145, 0));
}

TEST_F(LogoPickerScreenTest, showsThumbnailsFittedAndInTheMiddle) {
    addPicture("breit.png", 800, 400);
    open();
    const QImage seen = picture(*tiles().viewport());
    const QPoint middle = cell(0).topLeft() + QPoint(4 + 66, 5 + 10 + 40);
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(-30, -12)), Qt::red));
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(30, -12)), Qt::green));
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(-30, 12)), Qt::blue));
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(0, -24)), Palette::current().ground));
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(-44, 0)), Palette::current().ground));
}

TEST_F(LogoPickerScreenTest, ofThousandsOfPicturesOnlyTheVisibleOnesAreDecoded) {
    constexpr int many = 1000;
    for (int count = 0; count < many; ++count)
        addPicture("Bild" + std::to_string(count) + ".png", 4, 2);
    open();
    EXPECT_EQ(tiles().model()->rowCount(), many);
    EXPECT_LE(pictures.begun, 20U);
    EXPECT_GE(pictures.begun, 16U);
    for (int row = 0; row < many; row += 10)
        tiles().scrollTo(tiles().model()->index(row, 0));
    tiles().scrollToBottom();
    settle();
    EXPECT_LE(pictures.waiting(), 20U);
    pictures.runAll();
    EXPECT_LE(pictures.begun, 40U);
}

TEST_F(LogoPickerScreenTest, tellsANameThatIsNoUtf8AndOneWithALineBreakLikeAnyOther) {
    addPicture("Gr\xFC\xDF"
               "e.png");
    addPicture("zwei\nZeilen.png");
    open();
    EXPECT_EQ(names(), (QStringList{u"Gr\uFFFD\uFFFDe.png"_s, u"zwei Zeilen.png"_s}));
    click(0);
    settle();
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(LogoPickerScreenTest, aFolderIsDescribedAsOne) {
    fs::create_directories(folder() / "Kunden");
    open();
    EXPECT_EQ(tiles().model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString(), u"Ordner"_s);
    EXPECT_EQ(accessibleNameOf(tiles()), u"Pictures"_s);
}

TEST_F(LogoPickerScreenTest, theRootIsCalledBySlash) {
    files.hasHome = false;
    open();
    EXPECT_TRUE(shows(u"/"_s));
    button(u"Übergeordneter Ordner"_s).click();
    finish();
    EXPECT_TRUE(shows(u"/"_s));
}

} // namespace
} // namespace brisklog::test
