// The logo picker's window: its tiles, its keys, and what lies in the folders people have.

#include "profile/screens/LogoPickerWindow.h"

#include "app/components/ListView.h"
#include "app/components/Palette.h"
#include "app/components/SheetHost.h"
#include "platform/qt/QtImages.h"
#include "profile/LogoImage.h"
#include "profile/screens/FileItemView.h"
#include "support/PdfPictures.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/SamplePictures.h"
#include "support/TemporaryHome.h"
#include "support/VirtualBackground.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

/// Stands for the popover.
class HostWindow final : public QWidget, public SheetHost {
public:
    [[nodiscard]] std::shared_ptr<void> holdOpen() override { return hold; }

    /// Counts only when it could: a window that is modal to this one keeps the keyboard.
    void takeFocusBack() override { focusBacks += QApplication::activeModalWidget() == nullptr ? 1 : 0; }

    [[nodiscard]] bool isHeldOpen() const { return hold.use_count() > 1; }

    std::shared_ptr<void> hold = std::make_shared<int>();
    int focusBacks = 0;
};

class LogoPickerScreenTest : public ScreenTest {
protected:
    LogoPickerScreenTest() {
        host.resize(370, 650);
        showActive(host);
    }

    /// Opens the window and lets folder and thumbnails come.
    void open() {
        controller.present("Logo auswählen",
                           [this](std::string bytes) { chosen.push_back(std::move(bytes)); });
        ASSERT_NE(window(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        finish();
    }

    void finish() {
        settle();
        folders.runAll();
        settle();
        pictures.runAll();
        settle();
    }

    [[nodiscard]] static LogoPickerWindow* window() {
        for (QWidget* const each : QApplication::topLevelWidgets())
            if (auto* const found = dynamic_cast<LogoPickerWindow*>(each); found && found->isVisible())
                return found;
        return nullptr;
    }

    [[nodiscard]] static ListView& tiles() { return *window()->findChild<ListView*>(); }

    [[nodiscard]] static QStringList names() {
        QStringList names;
        for (int row = 0; row < tiles().model()->rowCount(); ++row)
            names.append(tiles().model()->index(row, 0).data().toString());
        return names;
    }

    [[nodiscard]] static QRect cell(int row) { return tiles().visualRect(tiles().model()->index(row, 0)); }

    static void click(int row) {
        QTest::mouseClick(tiles().viewport(), Qt::LeftButton, Qt::NoModifier, cell(row).center());
    }

    [[nodiscard]] static QAbstractButton& button(const QString& name) {
        auto* const found = findNamed<QAbstractButton>(*window(), name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }

    [[nodiscard]] static bool shows(const QString& text) {
        for (const auto* const label : window()->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }

    [[nodiscard]] fs::path folder() const { return home.path() / "Pictures"; }

    void addPicture(const std::string& name, int width = 40, int height = 20) {
        writeFile(folder() / name, encoded(fourQuarters(width, height), "PNG"));
    }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    QtImages images;
    VirtualBackground folders;
    VirtualBackground pictures;
    HostWindow host;
    std::vector<std::string> chosen;
    LogoPickerWindowController controller{{.picker = {files, images, folders, log},
                                           .pictures = pictures,
                                           .parentWindow = [this]() -> QWidget* { return &host; }}};
};

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
    EXPECT_EQ(host.focusBacks, 1);
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
    folders.workOnly();
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
    pictures.workOnly();
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
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(0, -24)), Palette::of(*window()).ground));
    EXPECT_TRUE(looksLike(seen.pixelColor(middle + QPoint(-44, 0)), Palette::of(*window()).ground));
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

// Choosing

TEST_F(LogoPickerScreenTest, aClickOnAnImageChoosesItAndClosesTheWindow) {
    addPicture("Logo.png", 1600, 400);
    open();
    click(0);
    settle();
    ASSERT_EQ(chosen.size(), 1U);
    const QImage logo = QImage::fromData(QByteArray::fromStdString(chosen[0]));
    EXPECT_EQ(logo.size(), QSize(800, 200));
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(host.focusBacks, 1);
}

TEST_F(LogoPickerScreenTest, aCompletionMayCloseTheWindowItself) {
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
    EXPECT_EQ(host.focusBacks, 1);
}

TEST_F(LogoPickerScreenTest, aClickOnAFolderOpensItAndTheArrowLeadsBackToIt) {
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

TEST_F(LogoPickerScreenTest, aDoubleClickOnAFolderDoesNotChooseWhatLiesUnderThePointerThen) {
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

TEST_F(LogoPickerScreenTest, onlyTheFirstMouseButtonChooses) {
    addPicture("Logo.png");
    open();
    for (const auto other : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(tiles().viewport(), other, Qt::NoModifier, cell(0).center());
    QTest::mouseClick(tiles().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 300));
    settle();
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(LogoPickerScreenTest, whatCannotBeLoadedIsSaidAndTheWindowStays) {
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

TEST_F(LogoPickerScreenTest, aFolderThatHasVanishedIsSaid) {
    fs::create_directories(folder() / "Alt");
    open();
    fs::remove_all(folder() / "Alt");
    click(0);
    finish();
    EXPECT_TRUE(shows(u"Fehler beim Laden des Verzeichnisses: "_s +
                      QString::fromStdString((folder() / "Alt").string()) +
                      u": No such file or directory"_s));
    EXPECT_EQ(tiles().model()->rowCount(), 0);
    EXPECT_FALSE(shows(u"Hier liegen keine Bilder"_s));
    button(u"Übergeordneter Ordner"_s).click();
    finish();
    EXPECT_FALSE(shows(u"Fehler beim Laden des Verzeichnisses: "_s));
    EXPECT_TRUE(shows(u"Hier liegen keine Bilder"_s));
}

// Keyboard

TEST_F(LogoPickerScreenTest, theTilesHaveTheKeyboardFromTheStart) {
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

TEST_F(LogoPickerScreenTest, theTilesAreOneTabStop) {
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

TEST_F(LogoPickerScreenTest, whoWalksTheFoldersByKeyboardKeepsIt) {
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

TEST_F(LogoPickerScreenTest, returnWithNothingCurrentDoesNothing) {
    addPicture("a.png");
    open();
    QTest::keyClick(&tiles(), Qt::Key_Return);
    settle();
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_NE(window(), nullptr);
}

} // namespace
} // namespace brisklog::test
