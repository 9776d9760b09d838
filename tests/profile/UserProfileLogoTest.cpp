#include "ProfileFixture.h"

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr std::size_t largestLogo = 2097152;

class ProfileLogo : public ProfileFixture {};

TEST_F(ProfileLogo, isWrittenAsItIsAndComesBackAtTheNextStart) {
    const std::string logo = "\x89PNG\0not really"s;
    {
        UserProfile profile(services());
        profile.logoData = logo;
    }
    EXPECT_EQ(readFile(logoFile()), logo);
    EXPECT_EQ(log.lines, std::vector<std::string>{"Logo erfolgreich in Datei gespeichert: " +
                                                  logoFile().string() + " (15 Bytes)"});
    files.written.clear();
    const UserProfile again(services());
    EXPECT_EQ(again.logoData.get(), logo);
    EXPECT_EQ(files.written, std::vector<std::string>{"userLogo.png"}) << "loading writes it back";
    EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(ProfileLogo, doesNotTouchTheProfileFile) {
    UserProfile profile(services());
    profile.logoData = "logo";
    EXPECT_FALSE(fs::exists(profileFile()));
}

TEST_F(ProfileLogo, exactlyTwoMebibytesIsWritten) {
    UserProfile profile(services());
    profile.logoData = std::string(largestLogo, 'x');
    EXPECT_EQ(fs::file_size(logoFile()), largestLogo);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].ends_with(" (2097152 Bytes)"));
}

TEST_F(ProfileLogo, largerLogoIsUsedButNotWrittenAndTheOlderOneStaysOnDisk) {
    UserProfile profile(services());
    profile.logoData = "older";
    log.lines.clear();
    profile.logoData = std::string(largestLogo + 1, 'x');
    EXPECT_EQ(log.lines,
              std::vector<std::string>{"Logo ist zu groß (2097153 Bytes). Wird nicht gespeichert."});
    EXPECT_EQ(profile.logoData.get()->size(), largestLogo + 1);
    EXPECT_EQ(readFile(logoFile()), "older");
    EXPECT_EQ(UserProfile(services()).logoData.get(), "older");
}

TEST_F(ProfileLogo, removingTheLogoDeletesItsFileOnce) {
    UserProfile profile(services());
    profile.logoData = "logo";
    log.lines.clear();
    profile.logoData = std::nullopt;
    EXPECT_FALSE(fs::exists(logoFile()));
    EXPECT_EQ(log.lines, std::vector<std::string>{"Logo-Datei gelöscht"});
    profile.logoData = std::nullopt;
    EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(ProfileLogo, everyWriteOfTheLogoClearsTheOlderPlaceWithoutTakingItOver) {
    defaults.setValue("profile_logoData", Data{"older"});
    UserProfile profile(services());
    EXPECT_EQ(profile.logoData.get(), std::nullopt);
    EXPECT_FALSE(defaults.holds("profile_logoData"));
    defaults.setValue("profile_logoData", Data{"older"});
    profile.logoData = "logo";
    EXPECT_FALSE(defaults.holds("profile_logoData"));
}

TEST_F(ProfileLogo, failedWriteOfTheLogoPrintsOneLineAndKeepsItInMemory) {
    UserProfile profile(services());
    files.writesFail = true;
    profile.logoData = "logo";
    EXPECT_EQ(profile.logoData.get(), "logo");
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Fehler beim Speichern des Logos: ")) << log.lines[0];
}

TEST_F(ProfileLogo, unreadableLogoIsReportedAndLeftBehindOnlyWhenItCannotBeDeleted) {
    fs::create_directories(logoFile() / "in the way");
    const UserProfile profile(services());
    EXPECT_EQ(profile.logoData.get(), std::nullopt);
    ASSERT_EQ(log.lines.size(), 2U);
    EXPECT_TRUE(log.lines[0].starts_with("Fehler beim Laden des Logos: ")) << log.lines[0];
    EXPECT_TRUE(log.lines[1].starts_with("Fehler beim Löschen der Logo-Datei: ")) << log.lines[1];
}

TEST_F(ProfileLogo, isLoadedBeforeOlderValuesAreTakenOver) {
    writeFile(logoFile(), "logo");
    defaults.setValue("profile_city", "Pirna");
    const UserProfile profile(services());
    EXPECT_EQ(files.written, (std::vector<std::string>{"userLogo.png", "profile.json", "profile.json"}));
}

TEST_F(ProfileLogo, chosenImageBecomesTheLogoAndClosesThePicker) {
    UserProfile profile(services());
    profile.loadLogoFromFile();
    EXPECT_EQ(picker.titles, std::vector<std::string>{"Logo auswählen"});
    EXPECT_EQ(picker.closings, 0);
    picker.pending("image");
    EXPECT_EQ(profile.logoData.get(), "image");
    EXPECT_EQ(readFile(logoFile()), "image");
    EXPECT_EQ(picker.closings, 1);
}

TEST_F(ProfileLogo, withoutAPickerNothingHappens) {
    UserProfile profile({files, defaults, log, nullptr});
    profile.loadLogoFromFile();
    EXPECT_EQ(profile.logoData.get(), std::nullopt);
}

} // namespace
} // namespace brisklog::test
