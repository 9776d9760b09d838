#include "ProfileFixture.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* filledIn = R"({
  "companyName": "Blau GmbH",
  "fullName": "Erika Muster",
  "address": "Gasse 1",
  "postalCode": "01067",
  "city": "Dresden",
  "country": "Österreich",
  "phone": "+49 351 1",
  "email": "e@muster.example",
  "website": "muster.example",
  "taxId": "1/2/3",
  "vatId": "DE1",
  "taxOffice": "Dresden-Nord",
  "bankName": "Bank",
  "iban": "DE89",
  "bic": "MUST",
  "logoPositionX": 10.5,
  "logoPositionY": 20.25,
  "logoWidth": 123.0,
  "logoHeight": 45.0
})";

/// Every text of a profile, in the order of the file.
constexpr std::array allTexts{
    &UserProfile::companyName, &UserProfile::fullName, &UserProfile::address, &UserProfile::postalCode,
    &UserProfile::city,        &UserProfile::country,  &UserProfile::phone,   &UserProfile::email,
    &UserProfile::website,     &UserProfile::taxId,    &UserProfile::vatId,   &UserProfile::taxOffice,
    &UserProfile::bankName,    &UserProfile::iban,     &UserProfile::bic,
};

constexpr std::array allFigures{&UserProfile::logoPositionX, &UserProfile::logoPositionY,
                                &UserProfile::logoWidth, &UserProfile::logoHeight};

class Profile : public ProfileFixture {
protected:
    template <typename Value>
    static std::vector<Value> valuesOf(const UserProfile& profile, const auto& members) {
        std::vector<Value> values;
        std::ranges::transform(members, std::back_inserter(values),
                               [&profile](const auto member) { return (profile.*member).get(); });
        return values;
    }

    static std::vector<std::string> textsOf(const UserProfile& profile) {
        return valuesOf<std::string>(profile, allTexts);
    }

    static std::vector<double> figuresOf(const UserProfile& profile) {
        return valuesOf<double>(profile, allFigures);
    }

    static void expectDefaults(const UserProfile& profile) {
        std::vector<std::string> texts(allTexts.size());
        texts[5] = "Deutschland";
        EXPECT_EQ(textsOf(profile), texts);
        EXPECT_EQ(figuresOf(profile), (std::vector<double>{50, 50, 200, 100}));
    }

    static void expectFilledIn(const UserProfile& profile) {
        EXPECT_EQ(textsOf(profile),
                  (std::vector<std::string>{"Blau GmbH", "Erika Muster", "Gasse 1", "01067", "Dresden",
                                            "Österreich", "+49 351 1", "e@muster.example", "muster.example",
                                            "1/2/3", "DE1", "Dresden-Nord", "Bank", "DE89", "MUST"}));
        EXPECT_EQ(figuresOf(profile), (std::vector<double>{10.5, 20.25, 123, 45}));
    }

    /// Writes a profile file, loads it, and expects the loading error and nothing else.
    void expectRefused(const std::string& bytes) {
        writeFile(profileFile(), bytes);
        const UserProfile profile(services());
        expectDefaults(profile);
        ASSERT_EQ(log.lines.size(), 1U);
        EXPECT_TRUE(log.lines[0].starts_with("Error loading profile data: ")) << log.lines[0];
        EXPECT_EQ(readFile(profileFile()), bytes);
    }
};

TEST_F(Profile, freshStartMakesTheFolderButNoFile) {
    const UserProfile profile(services());
    expectDefaults(profile);
    EXPECT_EQ(profile.logoData.get(), std::nullopt);
    EXPECT_TRUE(fs::is_directory(folder()));
    EXPECT_TRUE(fs::is_empty(folder()));
    EXPECT_TRUE(files.written.empty());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Profile, everyTextAndFigureSavesTheFileOnEveryWrite) {
    UserProfile profile(services());
    std::size_t writes = 0;
    for (const auto text : allTexts) {
        profile.*text = "neu";
        EXPECT_EQ(files.written.size(), ++writes);
    }
    for (const auto figure : allFigures) {
        profile.*figure = 1.5;
        EXPECT_EQ(files.written.size(), ++writes);
    }
    profile.city = "neu";
    EXPECT_EQ(files.written, std::vector<std::string>(writes + 1, "profile.json"));
    const UserProfile again(services());
    EXPECT_EQ(textsOf(again), std::vector<std::string>(15, "neu"));
    EXPECT_EQ(figuresOf(again), std::vector<double>(4, 1.5));
}

TEST_F(Profile, fileHoldsItsKeysInOrderAndIndented) {
    writeFile(profileFile(), filledIn);
    const UserProfile profile(services());
    expectFilledIn(profile);
    EXPECT_EQ(files.written, std::vector<std::string>(19, "profile.json")) << "one write for each value";
    EXPECT_EQ(readFile(profileFile()), filledIn);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Profile, missingKeyRefusesTheWholeFile) {
    std::string stored = filledIn;
    stored.erase(stored.find(",\n  \"logoHeight\""), std::string(",\n  \"logoHeight\": 45.0").size());
    expectRefused(stored);
    EXPECT_NE(log.lines[0].find("logoHeight: missing"), std::string::npos);
}

TEST_F(Profile, wrongTypeRefusesTheWholeFile) {
    std::string stored = filledIn;
    stored.replace(stored.find("\"DE89\""), 6, "89");
    expectRefused(stored);
    EXPECT_NE(log.lines[0].find("iban: expected text, found a number"), std::string::npos);
}

TEST_F(Profile, noiseIsRefusedAndOverwrittenByTheNextChange) {
    expectRefused("\x89PNG");
    UserProfile profile(services());
    profile.city = "Görlitz";
    EXPECT_NE(readFile(profileFile()).find(R"("city": "Görlitz")"), std::string::npos);
}

TEST_F(Profile, refusedFileIsKeptInTheStateFolder) {
    expectRefused("[1, 2");
    const auto rescued = fs::directory_iterator(home.state() / "rescued");
    EXPECT_EQ(readFile(rescued->path()), "[1, 2");
}

TEST_F(Profile, failedWritesKeepTheValueInMemory) {
    UserProfile profile(services());
    files.writesFail = true;
    profile.city = "Pirna";
    EXPECT_EQ(profile.city.get(), "Pirna");
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0], "Error saving profile data: " + folder().string() + ": No space left on device");
}

TEST_F(Profile, figureThatIsNotFiniteIsNotWritten) {
    UserProfile profile(services());
    profile.city = "Pirna";
    const std::string before = readFile(profileFile());
    profile.logoWidth = std::numeric_limits<double>::infinity();
    EXPECT_EQ(readFile(profileFile()), before);
    EXPECT_EQ(log.lines,
              std::vector<std::string>{"Error saving profile data: logoWidth: number is not finite"});
}

TEST_F(Profile, folderThatCannotBeMadeIsOneLineForEachTry) {
    writeFile(home.applicationSupport() / "Pennavo", "a file in the folder's place");
    UserProfile profile(services());
    expectDefaults(profile);
    ASSERT_EQ(log.lines.size(), 3U);
    EXPECT_TRUE(log.lines[0].starts_with("Error loading profile data: "));
    EXPECT_TRUE(log.lines[1].starts_with("Fehler beim Laden des Logos: "));
    EXPECT_TRUE(log.lines[2].starts_with("Fehler beim Löschen der Logo-Datei: "));
    profile.city = "Pirna";
    EXPECT_EQ(log.countStartingWith("Error saving profile data: "), 1U);
    profile.logoData = "logo";
    EXPECT_EQ(log.countStartingWith("Fehler beim Speichern des Logos: "), 1U);
}

TEST_F(Profile, withoutAHomeEverythingStaysInMemory) {
    files.hasHome = false;
    UserProfile profile(services());
    profile.city = "Pirna";
    EXPECT_EQ(profile.city.get(), "Pirna");
    EXPECT_EQ(log.countStartingWith("Error saving profile data: no application support folder"), 1U);
}

// Older values

TEST_F(Profile, everyOlderKeyIsTakenOverInOrderAndSavedOnceMore) {
    const std::vector<std::string> keys{"profile_companyName",   "profile_fullName",  "profile_address",
                                        "profile_postalCode",    "profile_city",      "profile_country",
                                        "profile_phone",         "profile_email",     "profile_website",
                                        "profile_taxId",         "profile_vatId",     "profile_bankName",
                                        "profile_iban",          "profile_bic",       "profile_logoPositionX",
                                        "profile_logoPositionY", "profile_logoWidth", "profile_logoHeight"};
    for (std::size_t i = 0; i < 14; ++i)
        defaults.setValue(keys[i], "alt " + std::to_string(i));
    for (std::size_t i = 14; i < keys.size(); ++i)
        defaults.setValue(keys[i], static_cast<double>(i));
    const UserProfile profile(services());
    EXPECT_EQ(defaults.removed, keys);
    EXPECT_EQ(files.written.size(), keys.size() + 1);
    EXPECT_EQ(textsOf(profile), (std::vector<std::string>{"alt 0", "alt 1", "alt 2", "alt 3", "alt 4",
                                                          "alt 5", "alt 6", "alt 7", "alt 8", "alt 9",
                                                          "alt 10", "", "alt 11", "alt 12", "alt 13"}));
    EXPECT_EQ(figuresOf(profile), (std::vector<double>{14, 15, 16, 17}));
}

TEST_F(Profile, taxOfficeHasNoOlderKey) {
    defaults.setValue("profile_taxOffice", "Pirna");
    const UserProfile profile(services());
    EXPECT_EQ(profile.taxOffice.get(), "");
    EXPECT_TRUE(defaults.holds("profile_taxOffice"));
}

TEST_F(Profile, olderValuesWinOverTheFile) {
    writeFile(profileFile(), filledIn);
    defaults.setValue("profile_city", "Pirna");
    const UserProfile profile(services());
    EXPECT_EQ(profile.city.get(), "Pirna");
    EXPECT_EQ(profile.fullName.get(), "Erika Muster");
    EXPECT_NE(readFile(profileFile()).find(R"("city": "Pirna")"), std::string::npos);
}

TEST_F(Profile, olderFigureOfAnyTypeIsReadAsANumber) {
    defaults.setValue("profile_logoWidth", "120.5");
    defaults.setValue("profile_logoHeight", std::int64_t{60});
    defaults.setValue("profile_logoPositionX", Data{"noise"});
    const UserProfile profile(services());
    EXPECT_EQ(figuresOf(profile), (std::vector<double>{0, 50, 120.5, 60}));
}

TEST_F(Profile, olderValueThatIsNoTextStaysWhereItIs) {
    defaults.setValue("profile_city", Data{"Pirna"});
    const UserProfile profile(services());
    EXPECT_EQ(profile.city.get(), "");
    EXPECT_TRUE(defaults.holds("profile_city"));
    EXPECT_TRUE(files.written.empty());
}

TEST_F(Profile, observersAreToldOfEveryWrite) {
    UserProfile profile(services());
    int told = 0;
    const Subscription subscription = profile.observe([&told] { ++told; });
    profile.city = "Pirna";
    profile.logoWidth = 1;
    profile.logoData = std::nullopt;
    EXPECT_EQ(told, 3);
}

} // namespace
} // namespace brisklog::test
