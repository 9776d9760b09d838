#include "settings/AppSettings.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* everythingChanged = R"({
  "colorScheme": "Dunkel",
  "launchAtStartup": true,
  "startMinimized": true,
  "openLastProject": false,
  "timeRounding": "15 Minuten",
  "invoiceRounding": "Auf nächste Einheit runden"
})";

class Settings : public testing::Test {
protected:
    [[nodiscard]] SettingsPlatform platform() { return {files, defaults, log}; }

    [[nodiscard]] fs::path file() const { return home.documents() / "app_settings.json"; }

    static void expectDefaults(const AppSettings& settings) {
        EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::light);
        EXPECT_FALSE(settings.launchAtStartup);
        EXPECT_FALSE(settings.startMinimized);
        EXPECT_TRUE(settings.openLastProject);
        EXPECT_EQ(settings.timeRounding.get(), TimeRoundingOption::none);
        EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::none);
    }

    static void expectEverythingChanged(const AppSettings& settings) {
        EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::dark);
        EXPECT_TRUE(settings.launchAtStartup);
        EXPECT_TRUE(settings.startMinimized);
        EXPECT_FALSE(settings.openLastProject);
        EXPECT_EQ(settings.timeRounding.get(), TimeRoundingOption::fifteenMinutes);
        EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::roundNearest);
    }

    /// Writes a settings file, loads it, and expects the loading error and nothing else.
    void expectRefused(const std::string& bytes) {
        writeFile(file(), bytes);
        const AppSettings settings(platform());
        expectDefaults(settings);
        ASSERT_EQ(log.lines.size(), 1U) << bytes;
        EXPECT_TRUE(log.lines[0].starts_with("Error loading settings: ")) << log.lines[0];
        EXPECT_EQ(readFile(file()), bytes) << "loading must not rewrite what it could not read";
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
};

TEST_F(Settings, freshStartHasTheDefaultsAndWritesNoFileUntilAValueChanges) {
    AppSettings settings(platform());
    expectDefaults(settings);
    EXPECT_TRUE(files.written.empty());
    EXPECT_FALSE(fs::exists(home.documents()));
    EXPECT_TRUE(log.lines.empty());

    settings.openLastProject = true;
    EXPECT_EQ(files.written, std::vector<std::string>{"app_settings.json"});
    EXPECT_EQ(readFile(file()), R"({
  "colorScheme": "Hell",
  "launchAtStartup": false,
  "startMinimized": false,
  "openLastProject": true,
  "timeRounding": "Keine Rundung",
  "invoiceRounding": "Exakte Zeiten"
})");
}

TEST_F(Settings, everyPropertySavesOnEveryWriteAndComesBackAtTheNextStart) {
    {
        AppSettings settings(platform());
        settings.colorScheme = ColorSchemeOption::dark;
        settings.launchAtStartup = true;
        settings.startMinimized = true;
        settings.openLastProject = false;
        settings.timeRounding = TimeRoundingOption::fifteenMinutes;
        settings.invoiceRounding = InvoiceRoundingOption::roundNearest;
        settings.invoiceRounding = InvoiceRoundingOption::roundNearest;
    }
    EXPECT_EQ(files.written.size(), 7U) << "an equal value is written like any other";
    EXPECT_EQ(readFile(file()), everythingChanged);
    expectEverythingChanged(AppSettings(platform()));
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Settings, loadingRewritesTheFileOncePerAssignedValue) {
    writeFile(file(), everythingChanged);
    const AppSettings settings(platform());
    expectEverythingChanged(settings);
    EXPECT_EQ(files.written.size(), 6U);
    EXPECT_EQ(readFile(file()), everythingChanged);
}

TEST_F(Settings, loadingLeavesTheFileNormalised) {
    writeFile(file(), "\n{\"invoiceRounding\":\"Abrunden\",\"timeRounding\":\"20 Minuten\",\"x\":[1],"
                      "\"openLastProject\":true,\"startMinimized\":false,\"launchAtStartup\":false,"
                      "\"colorScheme\":\"Hell\"}");
    const AppSettings settings(platform());
    EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::roundDown);
    EXPECT_EQ(files.written.size(), 5U) << "the unknown rounding is not assigned";
    EXPECT_EQ(readFile(file()), R"({
  "colorScheme": "Hell",
  "launchAtStartup": false,
  "startMinimized": false,
  "openLastProject": true,
  "timeRounding": "Keine Rundung",
  "invoiceRounding": "Abrunden"
})");
}

TEST_F(Settings, caseNameInPlaceOfTheRawValueLoadsEverythingElse) {
    std::string stored = everythingChanged;
    stored.replace(stored.find("Dunkel"), 6, "dark");
    writeFile(file(), stored);
    AppSettings settings(platform());
    EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::light);
    EXPECT_TRUE(settings.launchAtStartup);
    EXPECT_EQ(settings.timeRounding.get(), TimeRoundingOption::fifteenMinutes);
    EXPECT_TRUE(log.lines.empty());

    settings.startMinimized = true;
    EXPECT_NE(readFile(file()).find(R"("colorScheme": "Hell")"), std::string::npos);
}

template <class Option>
std::optional<Option> optionCalled(std::string_view text) {
    Option option{};
    return fromJsonText(text, option) ? std::optional(option) : std::nullopt;
}

TEST_F(Settings, rawValuesAreComparedExactly) {
    EXPECT_EQ(optionCalled<ColorSchemeOption>("hell"), std::nullopt);
    EXPECT_EQ(optionCalled<ColorSchemeOption>("Hell "), std::nullopt);
    EXPECT_EQ(optionCalled<ColorSchemeOption>(""), std::nullopt);
    EXPECT_EQ(optionCalled<TimeRoundingOption>("5"), std::nullopt);
    // The same letter as two code points.
    EXPECT_EQ(optionCalled<InvoiceRoundingOption>("Auf na\u0308chste Einheit runden"), std::nullopt);
}

template <class Option>
std::vector<std::string_view> offered() {
    std::vector<std::string_view> texts;
    for (const auto& [option, text] : rawValues<Option>) {
        EXPECT_EQ(optionCalled<Option>(text), option);
        EXPECT_EQ(jsonText(option), text);
        texts.push_back(text);
    }
    return texts;
}

TEST_F(Settings, optionsAreListedInTheOrderInWhichTheyAreOffered) {
    using Texts = std::vector<std::string_view>;
    EXPECT_EQ(offered<ColorSchemeOption>(), (Texts{"Hell", "Dunkel"}));
    EXPECT_EQ(offered<TimeRoundingOption>(),
              (Texts{"Keine Rundung", "5 Minuten", "10 Minuten", "15 Minuten"}));
    EXPECT_EQ(offered<InvoiceRoundingOption>(), (Texts{"Exakte Zeiten", "Aufrunden", "Abrunden",
                                                       "Auf n\xC3\xA4"
                                                       "chste Einheit runden"}));
}

TEST_F(Settings, missingKeyRefusesTheWholeFile) {
    std::string stored = everythingChanged;
    stored.erase(stored.find(",\n  \"invoiceRounding\""),
                 stored.rfind('"') + 1 - stored.find(",\n  \"invoiceR"));
    expectRefused(stored);
    EXPECT_NE(log.lines[0].find("invoiceRounding: missing"), std::string::npos) << log.lines[0];
}

TEST_F(Settings, wrongTypeRefusesTheWholeFile) {
    std::string stored = everythingChanged;
    stored.replace(stored.find("true"), 4, "1");
    expectRefused(stored);
    EXPECT_NE(log.lines[0].find("launchAtStartup: expected a truth value, found a number"), std::string::npos)
        << log.lines[0];
}

TEST_F(Settings, noiseInPlaceOfTheFileIsRefusedAndOverwrittenByTheNextChange) {
    expectRefused("no JSON at all");
    AppSettings settings(platform());
    settings.startMinimized = true;
    EXPECT_NE(readFile(file()).find(R"("startMinimized": true)"), std::string::npos);
}

TEST_F(Settings, emptyFileIsRefused) { expectRefused(""); }

TEST_F(Settings, refusedFileIsKeptInTheStateFolder) {
    expectRefused("{\"colorScheme\": \"Dunkel\"");
    const auto rescued = fs::directory_iterator(home.state() / "rescued");
    EXPECT_EQ(readFile(rescued->path()), "{\"colorScheme\": \"Dunkel\"");
}

TEST_F(Settings, folderInPlaceOfTheFileLeavesTheDefaultsAndSavingFails) {
    fs::create_directories(file());
    AppSettings settings(platform());
    expectDefaults(settings);
    EXPECT_EQ(log.countStartingWith("Error loading settings: "), 1U);
    settings.startMinimized = true;
    EXPECT_TRUE(settings.startMinimized);
    EXPECT_EQ(log.countStartingWith("Error saving settings: "), 1U);
}

TEST_F(Settings, failedWriteKeepsTheValueInMemoryAndPrintsOneLine) {
    AppSettings settings(platform());
    files.writesFail = true;
    settings.colorScheme = ColorSchemeOption::dark;
    EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::dark);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines[0], "Error saving settings: " + file().string() + ": No space left on device");
}

TEST_F(Settings, valuesLeftInTheUserDefaultsWinOverTheFileAndAreRemovedThere) {
    writeFile(file(), everythingChanged);
    defaults.setValue("launchAtStartup", false);
    const AppSettings settings(platform());
    EXPECT_FALSE(settings.launchAtStartup);
    EXPECT_TRUE(settings.startMinimized);
    EXPECT_FALSE(defaults.holds("launchAtStartup"));
    EXPECT_NE(readFile(file()).find(R"("launchAtStartup": false)"), std::string::npos);
}

TEST_F(Settings, everyOlderKeyIsTakenOverInOrder) {
    defaults.setValue("invoiceRounding", "Auf nächste Einheit runden");
    defaults.setValue("timeRounding", "15 Minuten");
    defaults.setValue("openLastProject", false);
    defaults.setValue("startMinimized", true);
    defaults.setValue("launchAtStartup", true);
    defaults.setValue("colorScheme", "Dunkel");
    expectEverythingChanged(AppSettings(platform()));
    EXPECT_EQ(defaults.removed,
              (std::vector<std::string>{"colorScheme", "launchAtStartup", "startMinimized", "openLastProject",
                                        "timeRounding", "invoiceRounding"}));
    EXPECT_EQ(files.written.size(), 7U) << "one save each, one at the end";
    EXPECT_EQ(readFile(file()), everythingChanged);
}

TEST_F(Settings, olderTextThatIsNoRawValueStaysWhereItIs) {
    defaults.setValue("timeRounding", "20 Minuten");
    defaults.setValue("colorScheme", "dark");
    defaults.setValue("invoiceRounding", Data{"Aufrunden"});
    expectDefaults(AppSettings(platform()));
    EXPECT_TRUE(defaults.removed.empty());
    EXPECT_TRUE(defaults.holds("timeRounding"));
    EXPECT_TRUE(files.written.empty()) << "nothing was migrated, so nothing is saved";
}

TEST_F(Settings, olderSwitchesAreReadAsTruthWhateverTheirType) {
    defaults.setValue("launchAtStartup", std::int64_t{1});
    defaults.setValue("startMinimized", "YES");
    defaults.setValue("openLastProject", "nothing like a truth value");
    const AppSettings settings(platform());
    EXPECT_TRUE(settings.launchAtStartup);
    EXPECT_TRUE(settings.startMinimized);
    EXPECT_FALSE(settings.openLastProject);
    EXPECT_EQ(defaults.removed.size(), 3U);
}

TEST_F(Settings, observersAreToldBeforeEachChange) {
    AppSettings settings(platform());
    std::vector<ColorSchemeOption> seen;
    const Subscription subscription = settings.observe([&] { seen.push_back(settings.colorScheme); });
    settings.colorScheme = ColorSchemeOption::dark;
    settings.colorScheme = ColorSchemeOption::dark;
    EXPECT_EQ(seen, (std::vector{ColorSchemeOption::light, ColorSchemeOption::dark}));
}

TEST_F(Settings, switchingARoundingBackAndForthWritesTheSettingsFileOnly) {
    AppSettings settings(platform());
    settings.timeRounding = TimeRoundingOption::fifteenMinutes;
    settings.timeRounding = TimeRoundingOption::none;
    settings.invoiceRounding = InvoiceRoundingOption::roundUp;
    settings.invoiceRounding = InvoiceRoundingOption::none;
    EXPECT_EQ(files.written, std::vector<std::string>(4, "app_settings.json"));
}

TEST_F(Settings, withoutADocumentsFolderTheProgramStops) {
    files.hasHome = false;
    EXPECT_EXIT(AppSettings{platform()}, testing::ExitedWithCode(EXIT_FAILURE),
                "brisklog: no documents folder");
}

} // namespace
} // namespace brisklog::test
