#include "profile/LogoPickerView.h"

#include "support/FakeImages.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualBackground.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class LogoPickerViewTest : public testing::Test {
protected:
    /// Opens the picker and lets the first folder load.
    void open() {
        start();
        background.runAll();
    }

    void start() {
        view.emplace(
            LogoPickerPlatform{files, images, background, log},
            LogoPickerView::Actions{[this](std::string bytes) { chosen.push_back(std::move(bytes)); },
                                    [this] { ++dismissals; }});
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const FileItem& item : view->items.get())
            names.push_back(item.name());
        return names;
    }

    void choose(const std::string& name) {
        const auto items = view->items.get();
        const auto found = std::ranges::find(items, name, &FileItem::name);
        ASSERT_NE(found, items.end()) << name;
        view->handleSelection(*found);
        background.runAll();
    }

    [[nodiscard]] fs::path pictures() const { return home.path() / "Pictures"; }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    FakeImages images;
    VirtualBackground background;
    std::vector<std::string> chosen;
    int dismissals = 0;
    std::optional<LogoPickerView> view;
};

// Where it starts

TEST_F(LogoPickerViewTest, startsInTheFolderForPictures) {
    writeFile(pictures() / "Logo.png", "");
    open();
    EXPECT_EQ(view->currentDirectory.get(), pictures());
    EXPECT_THAT(names(), ElementsAre("Logo.png"));
}

TEST_F(LogoPickerViewTest, withoutPicturesItStartsAmongTheDocuments) {
    fs::create_directory(home.documents());
    open();
    EXPECT_EQ(view->currentDirectory.get(), home.documents());
}

TEST_F(LogoPickerViewTest, withoutEitherItStartsAtHome) {
    open();
    EXPECT_EQ(view->currentDirectory.get(), home.path());
}

TEST_F(LogoPickerViewTest, withoutAHomeItStartsAtTheRoot) {
    files.hasHome = false;
    open();
    EXPECT_EQ(view->currentDirectory.get(), "/");
    EXPECT_TRUE(view->errorText->empty());
}

// Reading folders

TEST_F(LogoPickerViewTest, aHiddenImageAndATextAreNotOffered) {
    writeFile(pictures() / ".logo.png", "");
    writeFile(pictures() / "Notiz.txt", "");
    open();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(view->errorText->empty());
}

TEST_F(LogoPickerViewTest, readsInTheBackgroundAndSaysSo) {
    writeFile(pictures() / "Logo.png", "");
    start();
    EXPECT_TRUE(view->isLoading);
    EXPECT_THAT(names(), IsEmpty());
    background.runAll();
    EXPECT_FALSE(view->isLoading);
    EXPECT_THAT(names(), ElementsAre("Logo.png"));
}

TEST_F(LogoPickerViewTest, everyChangeIsAnnounced) {
    start();
    int announcements = 0;
    const auto subscription = view->observe([&] { ++announcements; });
    background.runAll();
    EXPECT_GE(announcements, 2) << "one for the entries, one for the end of loading";
}

TEST_F(LogoPickerViewTest, entersAFolderAndComesBackUp) {
    writeFile(pictures() / "Kunden" / "Blau.png", "");
    writeFile(pictures() / "Akten" / "Rot.png", "");
    open();
    choose("Kunden");
    EXPECT_EQ(view->currentDirectory.get(), pictures() / "Kunden");
    EXPECT_THAT(names(), ElementsAre("Blau.png"));
    EXPECT_EQ(view->rowOfPreviousDirectory(), std::nullopt);
    view->moveToParentFolder();
    background.runAll();
    EXPECT_EQ(view->currentDirectory.get(), pictures());
    EXPECT_THAT(names(), ElementsAre("Akten", "Kunden"));
    EXPECT_EQ(view->rowOfPreviousDirectory(), 1U);
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(dismissals, 0);
}

TEST_F(LogoPickerViewTest, theWayUpEndsAtTheRoot) {
    open();
    for (int count = 0; count < 20; ++count)
        view->moveToParentFolder();
    EXPECT_EQ(view->currentDirectory.get(), "/");
    background.runAll();
    const std::size_t begun = background.begun;
    view->moveToParentFolder();
    EXPECT_EQ(view->currentDirectory.get(), "/");
    EXPECT_FALSE(view->isLoading);
    background.runAll();
    EXPECT_EQ(background.begun, begun) << "the root must not even be read again";
}

TEST_F(LogoPickerViewTest, aFolderThatHasVanishedIsSaidAndLeavesTheListEmpty) {
    fs::create_directories(pictures() / "Alt");
    open();
    fs::remove_all(pictures() / "Alt");
    choose("Alt");
    EXPECT_EQ(view->errorText.get(), "Fehler beim Laden des Verzeichnisses: " +
                                         (pictures() / "Alt").string() + ": No such file or directory");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_FALSE(view->isLoading);
    view->moveToParentFolder();
    background.runAll();
    EXPECT_TRUE(view->errorText->empty());
}

TEST_F(LogoPickerViewTest, aFolderThatBecameAFileIsSaid) {
    fs::create_directories(pictures() / "Alt");
    open();
    fs::remove_all(pictures() / "Alt");
    writeFile(pictures() / "Alt", "");
    choose("Alt");
    EXPECT_THAT(view->errorText.get(), EndsWith("Alt: Not a directory"));
}

TEST_F(LogoPickerViewTest, goingOnWhileAFolderIsReadShowsTheLastOneOnly) {
    writeFile(pictures() / "Kunden" / "Blau.png", "");
    writeFile(home.path() / "Heim.png", "");
    open();
    view->handleSelection({pictures() / "Kunden", true});
    background.runWithoutDelivering();
    view->moveToParentFolder();
    view->moveToParentFolder();
    background.deliver();
    EXPECT_TRUE(view->isLoading);
    EXPECT_THAT(names(), IsEmpty());
    background.runAll();
    EXPECT_EQ(view->currentDirectory.get(), home.path());
    EXPECT_THAT(names(), testing::Contains("Heim.png"));
}

TEST_F(LogoPickerViewTest, closedWhileAFolderIsReadItHearsNothingMore) {
    fs::create_directory(pictures());
    start();
    background.runWithoutDelivering();
    view.reset();
    background.deliver();
    start();
    view.reset();
    EXPECT_EQ(background.waiting(), 0U);
    EXPECT_FALSE(background.runNext());
}

TEST_F(LogoPickerViewTest, aCircleOfLinksIsAWayLikeAnyOther) {
    fs::create_directory(pictures());
    fs::create_symlink(".", pictures() / "Kreis");
    writeFile(pictures() / "Logo.png", "");
    open();
    for (int round = 0; round < 5; ++round)
        choose("Kreis");
    EXPECT_THAT(names(), ElementsAre("Kreis", "Logo.png"));
    for (int round = 0; round < 5; ++round)
        view->moveToParentFolder();
    EXPECT_EQ(view->currentDirectory.get(), pictures());
}

TEST_F(LogoPickerViewTest, aCircleEndsWhereTheSystemFollowsLinksNoFurther) {
    fs::create_directory(pictures());
    fs::create_symlink(".", pictures() / "Kreis");
    writeFile(pictures() / "Logo.png", "image 8 8");
    open();
    int rounds = 0;
    for (; rounds < 100 && names().size() == 2; ++rounds)
        choose("Kreis");
    EXPECT_LT(rounds, 100);
    EXPECT_THAT(names(), ElementsAre("Logo.png"));
    view->moveToParentFolder();
    background.runAll();
    EXPECT_THAT(names(), ElementsAre("Kreis", "Logo.png"));
}

// Choosing

TEST_F(LogoPickerViewTest, aChosenImageIsHandedOnAndThePickerCloses) {
    writeFile(pictures() / "Logo.JPG", "image 1600 400");
    open();
    choose("Logo.JPG");
    EXPECT_THAT(chosen, ElementsAre("png 800 200"));
    EXPECT_EQ(dismissals, 1);
    EXPECT_TRUE(view->errorText->empty());
}

TEST_F(LogoPickerViewTest, whatIsNoImageIsSaidAndNothingElseHappens) {
    writeFile(pictures() / "Text.png", "Das ist ein Text.");
    open();
    choose("Text.png");
    EXPECT_EQ(view->errorText.get(), "Konnte das Bild nicht laden");
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(dismissals, 0);
    EXPECT_THAT(names(), ElementsAre("Text.png"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(LogoPickerViewTest, theComplaintGoesWithTheNextChoice) {
    writeFile(pictures() / "Text.png", "Das ist ein Text.");
    writeFile(pictures() / "Bild.png", "image 8 8");
    open();
    choose("Text.png");
    choose("Bild.png");
    EXPECT_TRUE(view->errorText->empty());
    EXPECT_THAT(chosen, ElementsAre("png 8 8"));
}

TEST_F(LogoPickerViewTest, anImageThatHasVanishedIsSaid) {
    writeFile(pictures() / "Bild.png", "image 8 8");
    open();
    fs::remove(pictures() / "Bild.png");
    choose("Bild.png");
    EXPECT_EQ(view->errorText.get(), "Konnte das Bild nicht laden");
}

TEST_F(LogoPickerViewTest, whatCannotBeEncodedIsKeptAsItIs) {
    writeFile(pictures() / "Bild.png", "image 1600 400");
    images.encodingFails = true;
    open();
    choose("Bild.png");
    EXPECT_THAT(chosen, ElementsAre("image 1600 400"));
    EXPECT_EQ(dismissals, 1);
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(LogoPickerViewTest, whatCannotEvenBeReadAgainIsOneLineAndNothingIsChosen) {
    /// The file can be read as an image, but is gone when its bytes are needed.
    class VanishingImages final : public Images {
    public:
        [[nodiscard]] Result<Bitmap> read(const fs::path& file, const SizeRule& /*rule*/) const override {
            fs::remove(file);
            return Bitmap{};
        }

        [[nodiscard]] Result<Bitmap> decode(std::string_view, const SizeRule&) const override {
            return Error{""};
        }

        [[nodiscard]] Result<std::string> encodePng(const Bitmap&) const override { return Error{""}; }
    };

    const VanishingImages vanishing;
    writeFile(pictures() / "Bild.png", "");
    LogoPickerView picker(
        {files, vanishing, background, log},
        {[this](std::string bytes) { chosen.push_back(std::move(bytes)); }, [this] { ++dismissals; }});
    background.runAll();
    picker.handleSelection({pictures() / "Bild.png", false});
    EXPECT_THAT(log.lines, ElementsAre("Error getting original image data: " +
                                       (pictures() / "Bild.png").string() + ": No such file or directory"));
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(picker.errorText.get(), "Konnte das Bild nicht laden");
}

} // namespace
} // namespace brisklog::test
