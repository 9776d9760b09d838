#include "profile/FileItem.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>

namespace brisklog::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The names offered, in order; a trailing slash marks folders, both in the input and in the result.
std::vector<std::string> offered(const std::vector<std::string>& names) {
    std::vector<FolderEntry> entries;
    std::ranges::transform(names, std::back_inserter(entries), [](const std::string& name) {
        return name.ends_with('/') ? FolderEntry{name.substr(0, name.size() - 1), true}
                                   : FolderEntry{name, false};
    });
    std::vector<std::string> found;
    for (const FileItem& item : offeredItems("/Bilder", entries))
        found.push_back(item.name() + (item.isDirectory ? "/" : ""));
    return found;
}

TEST(FileItem, isFoundInItsFolder) {
    EXPECT_EQ(offeredItems("/Bilder", {{"Logo.png", false}}),
              (std::vector<FileItem>{{"/Bilder/Logo.png", false}}));
}

TEST(FileItem, imagesAreToldByTheirExtensionHoweverItIsWritten) {
    EXPECT_THAT(offered({"a.jpg", "b.JPG", "c.jpeg", "d.Png", "e.GIF", "f.tiff", "g.bmp", "h.JpEg"}),
                ElementsAre("a.jpg", "b.JPG", "c.jpeg", "d.Png", "e.GIF", "f.tiff", "g.bmp", "h.JpEg"));
    EXPECT_THAT(
        offered({"a.tif", "b.svg", "c.webp", "d.txt", "e.png.txt", "png", "f.", "g.pngx", "", "h.pn"}),
        IsEmpty());
    EXPECT_THAT(offered({"Logo.final.v2.png", " .png"}), ElementsAre(" .png", "Logo.final.v2.png"));
}

TEST(FileItem, hiddenOnesAreLeftOut) {
    EXPECT_THAT(offered({".png", ".logo.png", ".git/", "...png", "sichtbar/"}), ElementsAre("sichtbar/"));
}

TEST(FileItem, foldersStandBeforeImagesWhateverTheyAreCalled) {
    EXPECT_THAT(offered({"a.png", "z/", "b.png", "y.png/"}), ElementsAre("y.png/", "z/", "a.png", "b.png"));
}

TEST(FileItem, numbersCountByTheirValue) {
    EXPECT_THAT(offered({"Bild10.png", "Bild2.png", "Bild1.png", "Bild02.png", "Bild100.png"}),
                ElementsAre("Bild1.png", "Bild02.png", "Bild2.png", "Bild10.png", "Bild100.png"));
}

TEST(FileItem, upperAndLowerCaseAreAlike) {
    EXPECT_THAT(offered({"zebra.png", "Apfel.png", "birne.png", "Citrone.png", "apfel.png"}),
                ElementsAre("Apfel.png", "apfel.png", "birne.png", "Citrone.png", "zebra.png"));
}

TEST(FileItem, umlautsStandWhereAGermanLooksForThem) {
    EXPECT_THAT(offered({"Zaun.png", "Ärger.png", "Arzt.png", "Oben.png", "Öl.png", "Ofen.png", "Straße.png",
                         "Strasse 2.png", "Strauß.png", "Übung.png", "Uhr.png"}),
                ElementsAre("Ärger.png", "Arzt.png", "Oben.png", "Ofen.png", "Öl.png", "Strasse 2.png",
                            "Straße.png", "Strauß.png", "Übung.png", "Uhr.png", "Zaun.png"));
}

TEST(FileItem, aNameThatIsNoUtf8KeepsItsBytes) {
    EXPECT_THAT(offered({"\xFF\xFE.png", "Gr\xFC\xDF"
                                         "e.PNG"}),
                testing::UnorderedElementsAre("\xFF\xFE.png", "Gr\xFC\xDF"
                                                              "e.PNG"));
}

} // namespace
} // namespace brisklog::test
