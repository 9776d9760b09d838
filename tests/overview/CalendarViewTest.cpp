#include "overview/CalendarView.h"

#include "CalendarFixture.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using Texts = std::vector<std::string>;

class CalendarTest : public ::testing::Test {
protected:
    void use(const char* zone, Qt::DayOfWeek firstWeekday, const char* now) {
        bench = std::make_unique<CalendarBench>(zone, firstWeekday);
        bench->clock.set(bench->at(now));
        view = std::make_unique<CalendarView>(bench->services());
    }

    /// In Berlin, with the week beginning on Monday.
    void use(const char* now) { use("Europe/Berlin", Qt::Monday, now); }

    [[nodiscard]] std::string iso(int row, int column) const {
        const auto date = view->getDate(row, column);
        return date ? format::date(*date, format::DateForm::isoDay, bench->clock.calendar()) : "none";
    }

    [[nodiscard]] Texts shownDays() const {
        Texts days;
        for (int cell = 0; cell < 42; ++cell)
            days.push_back(iso(cell / 7, cell % 7));
        return days;
    }

    [[nodiscard]] Texts headings() const {
        Texts texts;
        for (int column = 0; column < 7; ++column)
            texts.push_back(view->columnHeading(column));
        return texts;
    }

    [[nodiscard]] CalendarCell cellOn(const std::string& name) const {
        for (const auto& cell : view->cells())
            if (cell && cell->name.starts_with(name))
                return *cell;
        ADD_FAILURE() << name;
        return {};
    }

    [[nodiscard]] static Texts consecutiveDays(QDate day) {
        Texts days;
        for (int i = 0; i < 42; ++i)
            days.push_back(day.addDays(i).toString(Qt::ISODate).toStdString());
        return days;
    }

    [[nodiscard]] Texts names() const {
        Texts names;
        for (const auto& cell : view->cells())
            names.push_back(cell ? cell->name : "none");
        return names;
    }

    [[nodiscard]] static Texts germanNames(QDate day) {
        const QLocale german(QLocale::German, QLocale::Germany);
        Texts names;
        for (int i = 0; i < 42; ++i)
            names.push_back(german.toString(day.addDays(i), QStringLiteral("d. MMMM yyyy")).toStdString());
        return names;
    }

    std::unique_ptr<CalendarBench> bench;
    std::unique_ptr<CalendarView> view;
};

TEST_F(CalendarTest, beginsWithTheMonthOfNowAndNothingSelected) {
    use("2026-11-20T15:00:00");
    EXPECT_EQ(view->monthTitle(), "November 2026");
    EXPECT_EQ(view->selectedDate.get(), std::nullopt);
    EXPECT_EQ(shownDays(), consecutiveDays(QDate(2026, 10, 26)));
}

TEST_F(CalendarTest, firstColumnIsTheUsersFirstWeekday) {
    use("Europe/Berlin", Qt::Monday, "2026-11-20T15:00:00");
    EXPECT_EQ(headings(), (Texts{"Mo.", "Di.", "Mi.", "Do.", "Fr.", "Sa.", "So."}));
    EXPECT_EQ(iso(1, 0), "2026-11-02");
    use("America/New_York", Qt::Sunday, "2026-11-20T15:00:00");
    EXPECT_EQ(headings(), (Texts{"So.", "Mo.", "Di.", "Mi.", "Do.", "Fr.", "Sa."}));
    EXPECT_EQ(iso(1, 0), "2026-11-08");
    use("Africa/Cairo", Qt::Saturday, "2026-11-20T15:00:00");
    EXPECT_EQ(headings(), (Texts{"Sa.", "So.", "Mo.", "Di.", "Mi.", "Do.", "Fr."}));
    EXPECT_EQ(iso(1, 0), "2026-11-07");
}

TEST_F(CalendarTest, monthBeginningOnTheFirstWeekdayHasNoEarlierDays) {
    use("2027-02-10T12:00:00");
    EXPECT_EQ(iso(0, 0), "2027-02-01");
    EXPECT_EQ(iso(3, 6), "2027-02-28");
    EXPECT_EQ(iso(4, 0), "2027-03-01");
    EXPECT_EQ(iso(5, 6), "2027-03-14");
}

TEST_F(CalendarTest, longMonthBeginningInTheLastColumnReachesTheSixthRow) {
    use("2026-03-10T12:00:00"); // 1 March 2026 is a Sunday
    EXPECT_EQ(iso(0, 6), "2026-03-01");
    EXPECT_EQ(iso(5, 0), "2026-03-30");
    EXPECT_EQ(iso(5, 1), "2026-03-31");
    EXPECT_EQ(iso(5, 2), "2026-04-01");
}

TEST_F(CalendarTest, steppingBackFromJanuaryShowsDecemberOfTheYearBefore) {
    use("2027-01-31T12:00:00");
    view->showPreviousMonth();
    EXPECT_EQ(view->monthTitle(), "Dezember 2026");
    EXPECT_EQ(shownDays(), consecutiveDays(QDate(2026, 11, 30)));
}

TEST_F(CalendarTest, steppingOnFromDecemberShowsJanuaryOfTheYearAfter) {
    use("2026-12-31T23:59:59");
    view->showNextMonth();
    EXPECT_EQ(view->monthTitle(), "Januar 2027");
    EXPECT_EQ(shownDays(), consecutiveDays(QDate(2026, 12, 28)));
}

TEST_F(CalendarTest, steppingOnFromTheLastOfAMonthSkipsNoMonth) {
    use("2027-01-31T12:00:00");
    view->showNextMonth();
    EXPECT_EQ(view->monthTitle(), "Februar 2027");
    view->showNextMonth();
    EXPECT_EQ(view->monthTitle(), "März 2027");
}

TEST_F(CalendarTest, leapDaysAreShownWhereTheyAre) {
    use("2028-02-29T12:00:00");
    EXPECT_EQ(shownDays(), consecutiveDays(QDate(2028, 1, 31)));
    use("2100-02-10T12:00:00");
    EXPECT_EQ(shownDays(), consecutiveDays(QDate(2100, 2, 1)));
}

TEST_F(CalendarTest, everyMonthRunsThroughConsecutiveDaysInEveryZone) {
    // Zones whose clocks change at midnight, at odd hours, by half an hour, or never.
    for (const char* zone : {"Europe/Berlin", "America/Santiago", "Asia/Beirut", "America/Havana",
                             "Australia/Lord_Howe", "Africa/Cairo", "Pacific/Kiritimati", "UTC"})
        for (const Qt::DayOfWeek firstWeekday : {Qt::Sunday, Qt::Monday, Qt::Saturday}) {
            use(zone, firstWeekday, "2019-12-15T12:00:00");
            for (int month = 0; month < 60; ++month) {
                view->showNextMonth();
                const Texts days = shownDays();
                const auto first = QDate::fromString(QString::fromStdString(days[0]), Qt::ISODate);
                ASSERT_EQ(first.dayOfWeek(), firstWeekday) << zone << view->monthTitle();
                ASSERT_EQ(days, consecutiveDays(first)) << zone << view->monthTitle();
                ASSERT_EQ(names(), germanNames(first)) << zone << view->monthTitle();
            }
        }
}

TEST_F(CalendarTest, everyDayWithDataIsMarkedAcrossClockChanges) {
    for (const char* zone : {"Europe/Berlin", "America/Santiago", "Asia/Beirut", "America/Havana"}) {
        use(zone, Qt::Monday, "2024-01-01T12:00:00");
        for (int month = 0; month < 12; ++month, view->showNextMonth())
            for (const auto& cell : view->cells()) {
                ASSERT_FALSE(bench->manager.dailyUsageData->size() > 1);
                bench->manager.dailyUsageData = {};
                const Day day = bench->clock.calendar().dayOf(cell->date);
                bench->record(day.end.addingSeconds(-1));
                int marks = 0;
                for (const auto& other : view->cells())
                    marks += other->hasData ? 1 : 0;
                ASSERT_EQ(marks, 1) << zone << cell->name;
                ASSERT_TRUE(view->hasDataForDate(cell->date)) << zone << cell->name;
            }
    }
}

TEST_F(CalendarTest, dayThatNeverWasHasNoCell) {
    use("Pacific/Apia", Qt::Monday, "2011-12-15T12:00:00"); // crossed the date line after 29 December
    EXPECT_EQ(iso(4, 3), "2011-12-29");
    EXPECT_EQ(iso(4, 4), "none");
    EXPECT_EQ(iso(4, 5), "2011-12-31");
    EXPECT_EQ(view->cells()[4 * 7 + 4], std::nullopt);
}

TEST_F(CalendarTest, cellsSayWhatTheyAre) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    EXPECT_EQ(cellOn("15. November 2026").name, "15. November 2026, mit Daten");
    EXPECT_TRUE(cellOn("15. November 2026").hasData);
    EXPECT_EQ(cellOn("16. November 2026").name, "16. November 2026");
    EXPECT_EQ(cellOn("16. November 2026").dayOfMonth, "16");
    EXPECT_TRUE(cellOn("20. November 2026").isToday);
    EXPECT_FALSE(cellOn("19. November 2026").isToday);
    EXPECT_TRUE(cellOn("1. November 2026").isOfMonth);
    EXPECT_FALSE(cellOn("31. Oktober 2026").isOfMonth);
}

TEST_F(CalendarTest, selectingADayWithoutDataSelectsItAndOpensNothing) {
    use("2026-11-20T15:00:00");
    view->selectDate(*view->getDate(2, 0));
    EXPECT_TRUE(cellOn("9. November 2026").isSelected);
    EXPECT_FALSE(cellOn("10. November 2026").isSelected);
    EXPECT_TRUE(bench->windows.opened.empty());
    EXPECT_TRUE(bench->registry.windowControllers().empty());
}

TEST_F(CalendarTest, selectingADayWithDataOpensItsDetail) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    view->selectDate(cellOn("15. November 2026").date);
    ASSERT_EQ(bench->windows.opened.size(), 1U);
    const DetailWindowContent& content = bench->windows.opened[0]->content;
    EXPECT_EQ(content.title, "App-Nutzung: 15.11.2026");
    EXPECT_EQ(content.detail.rows().at(0).appName, "Editor");
    EXPECT_TRUE(cellOn("15. November 2026").isSelected);
}

TEST_F(CalendarTest, dayOfANeighbouringMonthIsMarkedAndOpensAndTheMonthStays) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-10-30T09:00:00"));
    bench->record(bench->at("2026-12-06T09:00:00"));
    EXPECT_TRUE(cellOn("30. Oktober 2026").hasData);
    view->selectDate(cellOn("30. Oktober 2026").date);
    view->selectDate(cellOn("6. Dezember 2026").date);
    ASSERT_EQ(bench->windows.opened.size(), 2U);
    EXPECT_EQ(bench->windows.opened[0]->content.title, "App-Nutzung: 30.10.2026");
    EXPECT_EQ(bench->windows.opened[1]->content.title, "App-Nutzung: 06.12.2026");
    EXPECT_EQ(view->monthTitle(), "November 2026");
}

TEST_F(CalendarTest, firstRecordOfADayIsTheOneShown) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"), "Erste");
    bench->record(bench->at("2026-11-15T10:00:00"), "Zweite");
    view->selectDate(cellOn("15. November 2026").date);
    EXPECT_EQ(bench->windows.opened.at(0)->content.detail.rows().at(0).appName, "Erste");
}

TEST_F(CalendarTest, selectingADayTwiceOpensTwoWindowsAndTheFirstStaysOpen) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    view->selectDate(cellOn("15. November 2026").date);
    view->selectDate(cellOn("15. November 2026").date);
    EXPECT_EQ(bench->windows.opened.size(), 2U);
    EXPECT_TRUE(bench->windows.opened[0]->isOpen);
    ASSERT_EQ(bench->registry.windowControllers().size(), 1U);
    EXPECT_EQ(bench->registry.windowControllers().begin()->first,
              "detailWindowController_2026-11-14 23:00:00 +0000");
}

TEST_F(CalendarTest, closingTheEarlierOfTwoWindowsKeepsTheLaterOnesEntry) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    view->selectDate(cellOn("15. November 2026").date);
    view->selectDate(cellOn("15. November 2026").date);
    bench->windows.close(0);
    EXPECT_EQ(bench->registry.windowControllers().size(), 1U);
    bench->windows.close(1);
    EXPECT_TRUE(bench->registry.windowControllers().empty());
}

TEST_F(CalendarTest, closingAWindowRemovesItsOwnEntryOnly) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    bench->record(bench->at("2026-11-16T09:00:00"));
    view->selectDate(cellOn("15. November 2026").date);
    view->selectDate(cellOn("16. November 2026").date);
    bench->windows.close(0);
    ASSERT_EQ(bench->registry.windowControllers().size(), 1U);
    EXPECT_EQ(bench->registry.windowControllers().begin()->first,
              "detailWindowController_2026-11-15 23:00:00 +0000");
}

TEST_F(CalendarTest, clearingAllDataRemovesEveryMarkAndLeavesOpenWindowsAsTheyAre) {
    use("2026-11-20T15:00:00");
    bench->record(bench->at("2026-11-15T09:00:00"));
    view->selectDate(cellOn("15. November 2026").date);
    int announcements = 0;
    const auto subscription = view->autoTrackingManager().observe([&] { ++announcements; });
    bench->manager.clearAllData();
    EXPECT_GT(announcements, 0);
    for (const auto& cell : view->cells())
        EXPECT_FALSE(cell->hasData);
    EXPECT_TRUE(bench->windows.opened[0]->isOpen);
    EXPECT_EQ(bench->windows.opened[0]->content.detail.rows().size(), 1U);
}

TEST_F(CalendarTest, cellCarriesTheSameMomentEachTime) {
    use("2026-11-20T15:00:00");
    const auto before = view->getDate(0, 4);
    view->showPreviousMonth();
    const auto asOwnDay = view->getDate(4, 4);
    view->showNextMonth();
    EXPECT_EQ(view->getDate(0, 4), before);
    EXPECT_EQ(asOwnDay, before);
}

} // namespace
} // namespace brisklog::test
