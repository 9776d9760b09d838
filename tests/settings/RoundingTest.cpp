// The rounding choices are kept for later versions: no time and no amount may depend on them.

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceGenerator.h"
#include "invoice/InvoiceView.h"
#include "invoice/UpdatedInvoiceTemplate.h"
#include "platform/documents/CairoPdfFacility.h"
#include "profile/UserProfile.h"
#include "settings/AppSettings.h"
#include "support/MemoryUserDefaults.h"
#include "support/PdfReader.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingSavePanel.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

struct Choices {
    TimeRoundingOption time = TimeRoundingOption::none;
    InvoiceRoundingOption invoice = InvoiceRoundingOption::none;
};

/// Every combination of choices that the settings offer.
std::vector<Choices> allChoices() {
    std::vector<Choices> all;
    for (const auto& time : rawValues<TimeRoundingOption>)
        for (const auto& invoice : rawValues<InvoiceRoundingOption>)
            all.push_back({time.option, invoice.option});
    return all;
}

/// A fresh home in which these choices were made before anything was recorded.
class HomeWith {
public:
    explicit HomeWith(const Choices& choices) {
        settings.timeRounding = choices.time;
        settings.invoiceRounding = choices.invoice;
        store.updateProject(0, "Website", 60.0);
    }

    /// Starts a timer and stops it that many seconds later.
    TimeEntry record(TimeInterval seconds) {
        store.startTracking("Entwurf");
        const Uuid timer = store.activeEntries->begin()->first;
        clock.advance(seconds);
        store.stopTracking(timer);
        return store.projects->front().entries.back();
    }

    [[nodiscard]] InvoiceSummary invoiceOverEverything() {
        InvoiceView sheet(store, 0, facilities(), notifications);
        sheet.initializeEntryStatuses();
        sheet.selectAllEntries();
        return sheet.summary();
    }

    [[nodiscard]] std::string invoiceText() {
        const UpdatedInvoiceTemplate document(pdf, profile, clock.calendar(), clock.now());
        const Project& project = store.projects->front();
        return PdfReader(document.generate({.project = project,
                                            .customer = {},
                                            .invoiceNumber = "1",
                                            .selectedEntries = project.entries,
                                            .additionalNotes = ""}))
            .readText();
    }

    [[nodiscard]] std::string reportText() {
        return PdfReader(InvoiceGenerator(pdf, profile, clock.calendar(), clock.now())
                             .generate(store.projects->front()))
            .readText();
    }

    TemporaryHome home;
    RecordingFiles files;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    MemoryUserDefaults defaults;
    RecordingSavePanel savePanel;
    NotificationCenter notifications;
    CairoPdfFacility pdf;
    AppSettings settings{{files, defaults, log}};
    UserProfile profile{{files, defaults, log}};
    TimeTrackingStore store{{files, defaults, clock, runLoop, log}};

private:
    [[nodiscard]] DocumentFacilities facilities() {
        return {.pdf = pdf,
                .clock = clock,
                .savePanel = savePanel,
                .files = files,
                .log = log,
                .profile = [this]() -> const UserProfile& { return profile; }};
    }
};

constexpr TimeInterval sevenAndAHalfMinutes = 450;
constexpr TimeInterval anHourAndAMinute = 3660;

TEST(Rounding, aStoppedTimerRecordsExactlyWhatPassed) {
    for (const Choices& choices : allChoices()) {
        HomeWith home(choices);
        const Date start = home.clock.now();
        const TimeEntry entry = home.record(sevenAndAHalfMinutes);
        EXPECT_EQ(entry.startTime, start);
        EXPECT_EQ(entry.duration(home.clock.now()), sevenAndAHalfMinutes);
        const TimeTrackingStore reopened({home.files, home.defaults, home.clock, home.runLoop, home.log});
        EXPECT_EQ(reopened.projects->front().entries.at(0), entry);
    }
}

TEST(Rounding, theInvoiceSheetBillsExactlyWhatWasRecorded) {
    for (const Choices& choices : allChoices()) {
        HomeWith home(choices);
        const TimeEntry entry = home.record(anHourAndAMinute);
        EXPECT_DOUBLE_EQ(entry.earnings(60.0, home.clock.now()), 61.0);
        const InvoiceSummary sums = home.invoiceOverEverything();
        EXPECT_EQ(sums.totalTime, "1\u00A0h 1\u00A0min");
        EXPECT_EQ(sums.totalAmount, "61.00 €");
    }
}

/// Both documents of a home, with hours and amounts that any rounding would change.
struct Documents {
    std::string invoice;
    std::string report;

    explicit Documents(const Choices& choices) {
        HomeWith home(choices);
        home.record(anHourAndAMinute);
        home.record(sevenAndAHalfMinutes);
        invoice = home.invoiceText();
        report = home.reportText();
    }
};

TEST(Rounding, bothDocumentsPrintTheSameWhateverWasChosen) {
    const Documents exact{Choices{}};
    // 61 minutes and 7.5 minutes at 60 euros.
    EXPECT_NE(withoutBlanks(exact.invoice).find("68,50€"), std::string::npos) << exact.invoice;
    EXPECT_NE(withoutBlanks(exact.report).find("68,50€"), std::string::npos) << exact.report;
    for (const Choices& choices :
         {Choices{.time = TimeRoundingOption::fiveMinutes},
          Choices{.time = TimeRoundingOption::fifteenMinutes},
          Choices{.invoice = InvoiceRoundingOption::roundUp},
          Choices{.invoice = InvoiceRoundingOption::roundDown},
          Choices{TimeRoundingOption::tenMinutes, InvoiceRoundingOption::roundNearest}}) {
        const Documents chosen(choices);
        EXPECT_EQ(chosen.invoice, exact.invoice);
        EXPECT_EQ(chosen.report, exact.report);
    }
}

TEST(Rounding, changingAChoiceBackAndForthChangesTheSettingsFileAlone) {
    HomeWith home({});
    home.record(anHourAndAMinute);
    const auto projectsFile = home.home.documents() / "projects.json";
    const std::string before = readFile(projectsFile);
    home.files.written.clear();
    home.settings.timeRounding = TimeRoundingOption::fifteenMinutes;
    home.settings.invoiceRounding = InvoiceRoundingOption::roundUp;
    home.settings.timeRounding = TimeRoundingOption::none;
    home.settings.invoiceRounding = InvoiceRoundingOption::none;
    EXPECT_EQ(home.files.written, std::vector<std::string>(4, "app_settings.json"));
    EXPECT_EQ(readFile(projectsFile), before);
    EXPECT_EQ(home.invoiceOverEverything().totalAmount, "61.00 €");
}

} // namespace
} // namespace brisklog::test
