#include "overview/screens/DashboardScreen.h"

#include "app/projects/ProjectWorkbench.h"
#include "overview/screens/ActiveTimerPanel.h"
#include "overview/screens/BarChart.h"
#include "screens/Pictures.h"
#include "support/WritableStore.h"
#include "support/screen/ScreenReader.h"
#include "support/screen/ScreenTest.h"
#include "support/screen/Strokes.h"
#include "ui/look/Palette.h"

#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr Date friday{816879600}; // 20 November 2026, 15:00 UTC

class DashboardScreenTest : public ScreenTest {
protected:
    DashboardScreenTest() {
        bench.clock.set(friday);
        screen.resize(370, 592);
    }

    void open() { showActive(screen); }

    void addEntry(std::size_t project, double daysAgo, double hours) {
        TimeEntry entry;
        entry.id = Uuid::generate();
        entry.startTime = friday.addingSeconds(-daysAgo * fullDay - 6 * hour);
        entry.endTime = entry.startTime.addingSeconds(hours * hour);
        bench.store.addManualEntry(bench.project(project).id, entry);
    }

    void fill() {
        bench.store.updateProject(0, "Website-Relaunch Müller & Söhne", 95);
        bench.store.addProject("Schulungen Verwaltungshochschule Niedersachsen-Nord und Umgebung", 120);
        bench.store.addProject("Buchhaltung intern", std::nullopt);
        const std::array worked{4.8, 9.2, 6.75, 8.6, 7.5, 1.2, 0.0};
        for (std::size_t day = 0; day < worked.size(); ++day)
            addEntry(0, static_cast<double>(day), worked[day]);
        addEntry(1, 22, 8);
        addEntry(1, 55, 7);
        addEntry(2, 2, 1);
        bench.store.selectedProjectIndex = 0;
        bench.store.startTracking("Rückmeldungen aus dem Usability-Test einarbeiten");
        bench.clock.advance(1800);
        bench.store.startTracking("Telefonat Druckerei Jäger");
        bench.clock.advance(600);
        bench.store.pauseTracking(newest());
    }

    [[nodiscard]] Uuid newest() const {
        const auto& timers = bench.store.activeEntries.get();
        return std::ranges::max_element(timers, {},
                                        [](const auto& timer) { return timer.second.entry.startTime; })
            ->first;
    }

    [[nodiscard]] static QString textOf(const QLabel& label) {
        return QString(label.text()).replace(u'\u00A0', u' ');
    }

    [[nodiscard]] QList<const QLabel*> visibleLabels() const {
        QList<const QLabel*> labels;
        for (const auto* label : screen.findChildren<QLabel*>())
            if (label->isVisible())
                labels.push_back(label);
        return labels;
    }

    [[nodiscard]] qsizetype countOf(const QString& text) const {
        return std::ranges::count(visibleLabels(), text, [](const QLabel* label) { return textOf(*label); });
    }

    [[nodiscard]] bool shows(const QString& text) const { return countOf(text) > 0; }

    /// The text in the same row, to the right of the caption.
    [[nodiscard]] QString beside(const QString& caption) const {
        const auto placeOf = [](const QLabel& label) {
            return QRect(label.mapToGlobal(QPoint()), label.size());
        };
        for (const QLabel* left : visibleLabels())
            for (const QLabel* right : visibleLabels()) {
                const QRect place = placeOf(*right);
                const bool isSameRow = std::abs(place.center().y() - placeOf(*left).center().y()) < 6;
                if (textOf(*left) == caption && isSameRow && place.left() > placeOf(*left).left())
                    return textOf(*right);
            }
        return {};
    }

    /// Of the whole column, however long.
    void takePicturesOfAll(const QString& name) {
        takePictures(*screen.findChild<QScrollArea*>()->widget(), name);
    }

    ProjectWorkbench bench;
    DashboardScreen screen{{bench.store, bench.clock, bench.runLoop}};
};

TEST_F(DashboardScreenTest, showsEveryFigureUnderItsCaption) {
    fill();
    open();
    takePicturesOfAll(u"dashboard"_s);
    for (const QString& text : {u"Arbeitszeitübersicht"_s,
                                u"Freitag, 20. November 2026"_s,
                                u"Arbeitszeit heute:"_s,
                                u"5 h 38 min"_s,
                                u"Gesamtarbeitszeit:"_s,
                                u"Projekte Übersicht"_s,
                                u"Buchhaltung intern"_s,
                                u"Arbeitszeit:"_s,
                                u"Verdienst:"_s,
                                u"Gesamtverdienst"_s,
                                u"Wochenübersicht"_s,
                                u"Gesamt diese Woche:"_s,
                                u"Durchschnitt pro Tag:"_s,
                                u"Laufende Timer"_s,
                                u"Gestartet: 15:00"_s,
                                u"Pausiert"_s,
                                u"Finanzen & Abrechnung"_s,
                                u"Monatlicher Umsatz"_s,
                                u"Aktueller Monat:"_s,
                                u"Gesamt:"_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_FALSE(shows(u"Keine aktiven Timer"_s));
}

TEST_F(DashboardScreenTest, everySumStandsBesideItsOwnCaption) {
    bench.store.updateProject(0, "Website", 100);
    addEntry(0, 0, 2);
    addEntry(0, 8, 3);
    addEntry(0, 40, 4);
    open();
    EXPECT_EQ(beside(u"Arbeitszeit heute:"_s), u"2 h 0 min"_s);
    EXPECT_EQ(beside(u"Gesamtarbeitszeit:"_s), u"9 h 0 min"_s);
    EXPECT_EQ(beside(u"Gesamtverdienst"_s), u"900,00 €"_s);
    EXPECT_EQ(beside(u"Gesamt diese Woche:"_s), u"2 h 0 min"_s);
    EXPECT_EQ(beside(u"Durchschnitt pro Tag:"_s), u"0 h 17 min"_s);
    EXPECT_EQ(beside(u"Aktueller Monat:"_s), u"500,00 €"_s);
    EXPECT_EQ(beside(u"Gesamt:"_s), u"900,00 €"_s);
}

TEST_F(DashboardScreenTest, projectWithoutRateShowsNoEarnings) {
    bench.store.updateProject(0, "Website", 95);
    bench.store.addProject("Buchhaltung", std::nullopt);
    open();
    EXPECT_EQ(countOf(u"Arbeitszeit:"_s), 2);
    EXPECT_EQ(countOf(u"Verdienst:"_s), 1);
}

TEST_F(DashboardScreenTest, timerOfADeletedProjectHasNeitherRowNorTheSentenceThatNoneRuns) {
    bench.store.startTracking("Entwurf");
    writable(bench.store.projects) = std::vector<Project>();
    open();
    EXPECT_FALSE(shows(u"Keine aktiven Timer"_s));
    EXPECT_FALSE(shows(u"Entwurf"_s));
}

TEST_F(DashboardScreenTest, emptyOneSaysThatNoTimerRuns) {
    writable(bench.store.projects) = std::vector<Project>();
    open();
    takePicturesOfAll(u"dashboard-leer"_s);
    EXPECT_TRUE(shows(u"Keine aktiven Timer"_s));
    EXPECT_TRUE(shows(u"0 h 0 min"_s));
    EXPECT_TRUE(shows(u"0,00 €"_s));
}

TEST_F(DashboardScreenTest, hugeFiguresStayWhole) {
    bench.store.updateProject(0, "Jahrhundertprojekt", 98765);
    addEntry(0, 4, 10);
    addEntry(0, 30, 480);
    open();
    takePicturesOfAll(u"dashboard-riesig"_s);
    EXPECT_TRUE(shows(u"48.394.850,00 €"_s));
}

TEST_F(DashboardScreenTest, aLowBarIsRoundedByHalfItsHeight) {
    addEntry(0, 1, 8);
    addEntry(0, 2, 0.2);
    open();
    QStringList bars;
    for (const Stroke& stroke : strokesOf(*findFirst<BarChart>(screen)))
        if (stroke.place.contains(u" 26×"_s))
            bars << stroke.place.section(u' ', 1);
    EXPECT_EQ(bars, (QStringList{u"26×4 r2"_s, u"26×156 r4"_s}));
}

TEST_F(DashboardScreenTest, barsTellTheirValueToPointerAndScreenReader) {
    fill();
    open();
    const auto* bar = findNamed<QWidget>(screen, u"Do.: 9\u00A0h 12\u00A0min"_s);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->toolTip(), bar->accessibleName());
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->height(), 100);
}

TEST_F(DashboardScreenTest, groupsAreNamedForTheScreenReader) {
    fill();
    open();
    for (
        const QString& name :
        {u"Timer: Website-Relaunch Müller & Söhne, Telefonat Druckerei Jäger, pausiert"_s,
         u"Timer: Website-Relaunch Müller & Söhne, Rückmeldungen aus dem Usability-Test einarbeiten, läuft"_s}) {
        auto* const timer = findNamed<ActiveTimerPanel>(screen, name);
        ASSERT_NE(timer, nullptr) << name.toStdString();
        EXPECT_EQ(ScreenReader::roleOf(*timer), QAccessible::Grouping);
    }
    EXPECT_EQ(ScreenReader::roleOf(*findNamed<BarChart>(screen, u"Wochenübersicht"_s)), QAccessible::Chart);
    EXPECT_EQ(ScreenReader::roleOf(*findNamed<BarChart>(screen, u"Monatlicher Umsatz"_s)),
              QAccessible::Chart);
}

TEST_F(DashboardScreenTest, showsTheFocusRingAlongItsEdge) {
    open();
    QWidget& area = *screen.findChild<QScrollArea*>();
    EXPECT_NE(ScreenReader::roleOf(area), QAccessible::Client);
    area.setFocus(Qt::MouseFocusReason);
    const QImage without = picture(screen);
    area.clearFocus();
    area.setFocus(Qt::TabFocusReason);
    const QImage with = picture(screen);
    const QPoint middle = screen.rect().center();
    for (const QPoint& onRing : {QPoint(1, middle.y()), QPoint(screen.width() - 2, middle.y()),
                                 QPoint(middle.x(), 1), QPoint(middle.x(), screen.height() - 2)}) {
        EXPECT_NE(without.pixelColor(onRing), Palette::current().blue);
        EXPECT_TRUE(looksLike(with.pixelColor(onRing), Palette::current().blue))
            << onRing.x() << ' ' << onRing.y();
    }
}

TEST_F(DashboardScreenTest, timersComeAndGoWithTheStore) {
    open();
    EXPECT_TRUE(shows(u"Keine aktiven Timer"_s));
    bench.store.startTracking("Entwurf");
    settle();
    EXPECT_TRUE(shows(u"Entwurf"_s));
    EXPECT_TRUE(shows(u"00:00:00"_s));
    bench.runLoop.advance(5);
    settle();
    EXPECT_TRUE(shows(u"00:00:05"_s));
    bench.store.stopTracking(newest());
    settle();
    EXPECT_TRUE(shows(u"Keine aktiven Timer"_s));
}

TEST_F(DashboardScreenTest, aPausedTimerTurnsOrangeAtOnce) {
    bench.store.startTracking("Entwurf");
    screen.resize(370, 1400);
    open();
    const QWidget& panel = *findFirst<ActiveTimerPanel>(screen);
    const QPoint onBar(6, panel.height() / 2);
    EXPECT_EQ(seenOnScreen(panel).pixelColor(onBar), Palette::current().blue);
    bench.store.pauseTracking(newest());
    settle();
    EXPECT_EQ(seenOnScreen(panel).pixelColor(onBar), Palette::current().orangeFill);
}

TEST_F(DashboardScreenTest, ticksOnlyWhileItIsSeen) {
    const auto before = bench.runLoop.timerCount();
    open();
    EXPECT_EQ(bench.runLoop.timerCount(), before + 1);
    screen.hide();
    EXPECT_EQ(bench.runLoop.timerCount(), before);
}

TEST_F(DashboardScreenTest, isReadWithTheKeyboardAlone) {
    fill();
    open();
    auto* area = screen.findChild<QScrollArea*>();
    QTest::keyClick(&screen, Qt::Key_Tab);
    ASSERT_TRUE(area->hasFocus());
    QTest::keyClick(area, Qt::Key_PageDown);
    EXPECT_GT(area->verticalScrollBar()->value(), 200);
    QTest::keyClick(area, Qt::Key_PageUp);
    EXPECT_EQ(area->verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace brisklog::test
