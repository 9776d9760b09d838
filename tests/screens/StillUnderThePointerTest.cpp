// Nothing moves under the pointer: neither while a button is down, nor after a click, except what the click
// is for.

#include "app/projects/screens/ProjectTabButton.h"
#include "invoice/screens/InvoiceScreen.h"
#include "overview/screens/DashboardScreen.h"
#include "screens/RandomPresses.h"
#include "screens/autotrack/AutoTrackingBench.h"
#include "screens/invoice/ArchiveSheetWindow.h"
#include "screens/invoice/InvoiceSheetWindow.h"
#include "screens/profile/CustomerSheetWindow.h"
#include "screens/profile/LogoPickerBench.h"
#include "screens/profile/ProfileScreenBench.h"
#include "settings/screens/SettingsScreen.h"

#include <array>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

/// The section below the popover's bar, and what is left of it on a low screen.
const std::vector<QSize> sectionSizes{{370, 592}, {370, 430}, {370, 300}};

constexpr std::array taskTexts{
    "Telefonat", "Rückmeldungen aus dem Usability-Test einarbeiten und dem Team vorstellen",
    "Donaudampfschifffahrtsgesellschaftskapitänsmützenbeschaffung",
    "Abstimmung mit der Druckerei Jäger & Söhne über Papier, Farben und den Liefertermin", "QA"};

std::string textNo(int number) {
    return taskTexts.at(static_cast<std::size_t>(number) % taskTexts.size()) + (" " + std::to_string(number));
}

std::vector<TimeEntry> manyEntries(int count) {
    std::vector<TimeEntry> entries;
    for (int i = 0; i < count; ++i) {
        entries.push_back(entryOf(textNo(i), (i % 5 + 0.5) * hour));
        entries.back().isInvoiced = i % 4 == 1;
    }
    return entries;
}

Customer customerNo(int number) {
    Customer customer = customerNamed(textNo(number), number % 2 == 0 ? textNo(number + 1) : std::string());
    customer.firstName = "Anna-Luise";
    customer.address = "Große Elbstraße 145 b, Hinterhaus, dritter Aufgang";
    customer.city = number % 3 == 0 ? "" : "Hamburg";
    customer.email = "post@beispiel.example";
    return customer;
}

class StillUnderThePointer : public ::testing::WithParamInterface<unsigned> {};

// The invoice sheet

class InvoiceUnderThePointer : public ScreenTest, public StillUnderThePointer {
protected:
    QWidget& opened() {
        if (!window || !window->sheet) {
            window.reset();
            content = std::make_unique<InvoiceSheet>(manyEntries(24), 85.5, textNo(2));
            for (int i = 0; i < 3; ++i)
                content->addCustomer(customerNo(i));
            content->store.addSavedNote("Zahlungsziel", "Zahlbar innerhalb von 14 Tagen.\n\nVielen Dank!");
            window = std::make_unique<InvoiceSheetWindow>(*content);
        }
        return *window->sheet;
    }

    std::unique_ptr<InvoiceSheet> content;
    std::unique_ptr<InvoiceSheetWindow> window;
};

TEST_P(InvoiceUnderThePointer, staysStill) {
    pressAtRandomPlaces({[this]() -> QWidget& { return opened(); }, {{640, 680}, {640, 520}, {900, 600}}},
                        GetParam());
}

// The customers and their form

class CustomersUnderThePointer : public CustomerSheetWindow, public StillUnderThePointer {
protected:
    void fill() {
        for (int i = 0; i < 15; ++i)
            addCustomer(customerNo(i));
    }

    QWidget& opened() {
        if (!sheet)
            open();
        return *sheet;
    }

    QWidget& openedForm() {
        opened();
        if (!form()) {
            list().scrollToTop();
            clickRow(0);
        }
        return *form();
    }
};

TEST_P(CustomersUnderThePointer, stayStill) {
    fill();
    pressAtRandomPlaces({[this]() -> QWidget& { return opened(); }, {{460, 560}, {460, 300}}}, GetParam());
}

TEST_P(CustomersUnderThePointer, stayStillInTheirForm) {
    fill();
    pressAtRandomPlaces({[this]() -> QWidget& { return openedForm(); }, {{500, 600}, {500, 360}, {460, 240}}},
                        GetParam());
}

// The archive

class ArchiveUnderThePointer : public ArchiveSheetWindow, public StillUnderThePointer {
protected:
    QWidget& opened() {
        if (!sheet)
            open();
        return *sheet;
    }
};

TEST_P(ArchiveUnderThePointer, staysStill) {
    for (int i = 0; i < 30; ++i)
        issue("2026-" + std::to_string(i), textNo(i), i * 9, {content.projectEntries().front().id});
    // Opening an invoice near the lower edge brings its details into view.
    const auto opens = [](const ThingOnScreen& thing) { return thing.isRow; };
    pressAtRandomPlaces({[this]() -> QWidget& { return opened(); }, {{400, 600}, {400, 300}}, opens},
                        GetParam());
}

// The profile and its logo picker

class ProfileUnderThePointer : public ProfileScreenBench, public StillUnderThePointer {};

TEST_P(ProfileUnderThePointer, staysStill) {
    profile.fullName = textNo(2);
    profile.companyName = textNo(3);
    open();
    pressAtRandomPlaces({[this]() -> QWidget& { return *screen; }, sectionSizes}, GetParam());
}

class LogoPickerUnderThePointer : public LogoPickerBench, public StillUnderThePointer {
protected:
    QWidget& opened() {
        finish();
        if (!window())
            open();
        return *window();
    }
};

TEST_P(LogoPickerUnderThePointer, staysStill) {
    for (int i = 0; i < 40; ++i)
        addPicture(textNo(i).substr(0, 60) + ".png");
    std::filesystem::create_directory(folder() / "Ältere");
    pressAtRandomPlaces({[this]() -> QWidget& { return opened(); }, {{600, 500}, {420, 320}}}, GetParam());
}

// The dashboard and the settings

class DashboardUnderThePointer : public ScreenTest, public StillUnderThePointer {};

TEST_P(DashboardUnderThePointer, staysStill) {
    ProjectWorkbench bench;
    for (int i = 0; i < 9; ++i) {
        bench.store.addProject(textNo(i), 85.5 * i);
        bench.store.addManualEntry(bench.project(static_cast<std::size_t>(i)).id, bench.entry(textNo(i), i));
        bench.store.startTracking(textNo(i));
        bench.clock.advance(60);
    }
    DashboardScreen screen({bench.store, bench.clock, bench.runLoop});
    pressAtRandomPlaces({[&]() -> QWidget& { return screen; }, sectionSizes}, GetParam());
}

class SettingsUnderThePointer : public ScreenTest, public StillUnderThePointer {};

TEST_P(SettingsUnderThePointer, stayStill) {
    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
    AppSettings settings{{files, defaults, log}};
    SettingsScreen screen(
        settings,
        {.makeArchiveSheet = [] { return std::make_unique<SheetWindow>(u"Archiv"_s, QSize(400, 600)); },
         .openLink = [](std::string_view) {}});
    pressAtRandomPlaces({[&]() -> QWidget& { return screen; }, sectionSizes}, GetParam());
}

// The projects, automatic tracking and a day's window

class ProjectUnderThePointer : public AutoTrackingBench, public StillUnderThePointer {
protected:
    void fill() {
        for (int i = 0; i < 7; ++i)
            bench.store.addProject(textNo(i), 85.5);
        for (const TimeEntry& entry : manyEntries(30))
            bench.store.addManualEntry(bench.project(0).id, entry);
        bench.store.selectedProjectIndex = 0;
        for (int i = 0; i < 6; ++i) {
            bench.store.startTracking(textNo(i));
            bench.clock.advance(60);
        }
    }

    /// A tab that is chosen may get another place in the strip.
    static bool isTab(const ThingOnScreen& thing) {
        return dynamic_cast<ProjectTabButton*>(thing.widget.data()) != nullptr;
    }
};

TEST_P(ProjectUnderThePointer, staysStill) {
    fill();
    open();
    pressAtRandomPlaces({[this]() -> QWidget& { return *screen; }, sectionSizes, isTab}, GetParam());
}

TEST_P(ProjectUnderThePointer, staysStillInAutomaticTracking) {
    fill();
    openPanel();
    for (int day = 0; day < 20; ++day)
        record(day, textNo(day), 3600);
    pressAtRandomPlaces({[this]() -> QWidget& { return *screen; }, {{370, 592}}, isTab}, GetParam());
}

TEST_P(ProjectUnderThePointer, staysStillInADaysWindow) {
    fill();
    openPanel();
    for (int app = 0; app < 40; ++app)
        record(5, textNo(app), 60 * app);
    QTest::mouseClick(&cell(u"15. November 2026, mit Daten"_s), Qt::LeftButton);
    settle();
    pressAtRandomPlaces({[]() -> QWidget& { return *dayWindows().back(); }, {{500, 600}, {400, 300}}},
                        GetParam());
}

class ProjectSheetUnderThePointer : public ProjectScreenBench, public StillUnderThePointer {};

TEST_P(ProjectSheetUnderThePointer, staysStill) {
    bench.store.addProject(textNo(2), 85.5);
    open();
    const auto opened = [this]() -> QWidget& {
        if (!sheet())
            click(u"Projekteinstellungen"_s);
        return *sheet();
    };
    pressAtRandomPlaces({opened, {{400, 252}, {400, 180}}}, GetParam());
}

constexpr auto seeds = [] { return ::testing::Range(1U, 4U); };
INSTANTIATE_TEST_SUITE_P(Seeds, InvoiceUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, CustomersUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, ArchiveUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, ProfileUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, LogoPickerUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, DashboardUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, SettingsUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, ProjectUnderThePointer, seeds());
INSTANTIATE_TEST_SUITE_P(Seeds, ProjectSheetUnderThePointer, seeds());

} // namespace
} // namespace brisklog::test
