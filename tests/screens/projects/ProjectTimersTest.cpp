// Typing, starting, pausing and stopping on the screen of a project.

#include "app/projects/screens/TimerList.h"
#include "screens/projects/ProjectScreenBench.h"
#include "support/screen/PaintCounter.h"
#include "support/screen/ScreenReader.h"
#include "support/screen/Strokes.h"
#include "ui/controls/SymbolButton.h"
#include "ui/look/Figures.h"
#include "ui/look/Label.h"

#include <QHelpEvent>
#include <QListView>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProjectTimers : public ProjectScreenBench {
protected:
    void typeAndReturn(const QString& text) {
        QTest::keyClicks(&taskField(), text);
        QTest::keyClick(&taskField(), Qt::Key_Return);
        settle();
    }

    void startBoth() {
        for (const QString& task : {u"Entwurf"_s, u"Telefonat"_s}) {
            typeAndReturn(task);
            advance(0.5);
        }
    }

    using ProjectScreenBench::button;
    using ProjectScreenBench::click;

    /// The timer's button, found by the timer's task.
    [[nodiscard]] QAbstractButton& button(const QString& name, const QString& taskName) {
        for (auto* row : timerRows())
            if (row->timer().taskName == taskName.toStdString())
                return ProjectScreenBench::button(*row, name);
        ADD_FAILURE() << "no timer " << taskName.toStdString();
        std::abort();
    }

    void click(const QString& name, const QString& taskName) {
        button(name, taskName).click();
        settle();
    }

    [[nodiscard]] std::vector<QString> durations() {
        std::vector<QString> texts;
        for (auto* row : timerRows())
            texts.push_back(part<FigureLabel>(*row).text());
        return texts;
    }

    [[nodiscard]] std::vector<TimerPanel*> timerRows() {
        std::vector<TimerPanel*> rows;
        for (auto* widget : screen->findChildren<QWidget*>())
            if (auto* row = dynamic_cast<TimerPanel*>(widget); row && row->isVisible())
                rows.push_back(row);
        std::ranges::sort(rows, {}, &QWidget::y);
        return rows;
    }

    [[nodiscard]] QWidget& entryList() { return *screen->findChild<QListView*>()->viewport(); }
};

TEST_F(ProjectTimers, typingBeginsInTheTaskField) {
    open();
    EXPECT_TRUE(taskField().hasFocus());
    EXPECT_EQ(taskField().placeholderText(), u"Aufgabe eingeben"_s);
}

TEST_F(ProjectTimers, returnStartsATimerAndKeepsTheKeyboard) {
    open();
    typeAndReturn(u"Entwurf"_s);
    ASSERT_EQ(timerRows().size(), 1U);
    EXPECT_TRUE(shows(u"Entwurf"_s));
    EXPECT_TRUE(taskField().hasFocus());
    advance(0.5);
    EXPECT_EQ(taskField().text(), QString());
    EXPECT_TRUE(taskField().hasFocus());
    typeAndReturn(u"Telefonat"_s);
    EXPECT_EQ(timerRows().size(), 2U);
}

TEST_F(ProjectTimers, stopPressedWithTheKeyboardGivesItToTheTaskField) {
    open();
    startBoth();
    button(u"Stoppen"_s, u"Entwurf"_s).setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    settle();
    ASSERT_EQ(timerRows().size(), 1U);
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectTimers, stopPressedByAScreenReaderGivesTheKeyboardToTheTaskField) {
    open();
    typeAndReturn(u"Entwurf"_s);
    advance(0.5);
    auto& stop = ScreenReader::of(button(u"Stoppen"_s));
    ScreenReader::act(stop, QAccessibleActionInterface::setFocusAction());
    ASSERT_FALSE(taskField().hasFocus());
    ScreenReader::act(stop, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(timerRows().empty());
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectTimers, stopLeavesTheKeyboardWhereItIsOtherwise) {
    open();
    startBoth();
    QAbstractButton& elsewhere = button(u"Pausieren"_s, u"Telefonat"_s);
    elsewhere.setFocus(Qt::TabFocusReason);
    QTest::mouseClick(&button(u"Stoppen"_s, u"Entwurf"_s), Qt::LeftButton);
    settle();
    EXPECT_TRUE(elsewhere.hasFocus());
}

TEST_F(ProjectTimers, rowsAreNamedGroupsForTheScreenReader) {
    open();
    typeAndReturn(u"Entwurf"_s);
    EXPECT_EQ(ScreenReader::roleOf(*timerRows()[0]), QAccessible::Grouping);
    EXPECT_EQ(accessibleNameOf(*timerRows()[0]), u"Timer: Entwurf, läuft"_s);
    click(u"Pausieren"_s);
    EXPECT_EQ(accessibleNameOf(*timerRows()[0]), u"Timer: Entwurf, pausiert"_s);
}

TEST_F(ProjectTimers, startPressedWithTheKeyboardGivesItBackToTheTaskField) {
    open();
    QTest::keyClicks(&taskField(), u"Entwurf"_s);
    QTest::keyClick(&taskField(), Qt::Key_Tab);
    ASSERT_TRUE(button(u"Start"_s).hasFocus());
    QTest::keyClick(&button(u"Start"_s), Qt::Key_Space);
    settle();
    ASSERT_EQ(timerRows().size(), 1U);
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectTimers, buttonsShowTheirSymbols) {
    const auto expectOnly = [](QWidget& button, const QString& symbol, ColorRole color) {
        const std::vector<Stroke> strokes = strokesOf(button);
        ASSERT_EQ(strokes.size(), 1U) << symbol.toStdString();
        EXPECT_EQ(strokes[0].kind, Stroke::Kind::symbol);
        EXPECT_EQ(strokes[0].what, symbol);
        EXPECT_TRUE(looksLike(strokes[0].color, Palette::current().*color)) << symbol.toStdString();
    };
    open();
    typeAndReturn(u"Entwurf"_s);
    expectOnly(button(u"Stoppen"_s), u"stop.fill"_s, &Palette::text);
    expectOnly(button(u"Pausieren"_s), u"pause.fill"_s, &Palette::blue);
    click(u"Pausieren"_s);
    expectOnly(button(u"Fortsetzen"_s), u"play.fill"_s, &Palette::orangeFill);
}

TEST_F(ProjectTimers, startDoesTheSameAsReturn) {
    open();
    QTest::keyClicks(&taskField(), u"Entwurf"_s);
    QTest::mouseClick(&button(u"Start"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(timerRows().size(), 1U);
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectTimers, spacesAloneStartNothingAndStayAsTyped) {
    open();
    typeAndReturn(u"   "_s);
    advance(1);
    EXPECT_TRUE(timerRows().empty());
    EXPECT_EQ(taskField().text(), u"   "_s);
    EXPECT_TRUE(button(u"Start"_s).isEnabled());
}

TEST_F(ProjectTimers, spacesAroundTheNameAreRecorded) {
    open();
    typeAndReturn(u" Entwurf "_s);
    EXPECT_EQ(bench.store.activeEntries->begin()->second.entry.taskName, " Entwurf ");
}

TEST_F(ProjectTimers, inputRowIsDisabledUntilTheNameIsCleared) {
    open();
    typeAndReturn(u"Entwurf"_s);
    EXPECT_FALSE(button(u"Start"_s).isEnabled());
    typeAndReturn(u"verloren"_s);
    EXPECT_EQ(taskField().text(), u"Entwurf"_s);
    advance(0.29);
    EXPECT_FALSE(button(u"Start"_s).isEnabled());
    advance(0.02);
    EXPECT_TRUE(button(u"Start"_s).isEnabled());
    EXPECT_EQ(taskField().text(), QString());
    EXPECT_EQ(timerRows().size(), 1U);
}

TEST_F(ProjectTimers, durationsRunOncePerSecond) {
    bench.store.startTracking("Entwurf");
    open();
    EXPECT_EQ(durations(), std::vector<QString>{u"00:00:00"_s});
    advance(307);
    EXPECT_EQ(durations(), std::vector<QString>{u"00:05:07"_s});
}

TEST_F(ProjectTimers, withoutTimersSayingSoStandsInTheHeading) {
    open();
    EXPECT_TRUE(shows(u"Keine aktiven Timer"_s));
    typeAndReturn(u"Entwurf"_s);
    EXPECT_FALSE(shows(u"Keine aktiven Timer"_s));
    click(u"Stoppen"_s, u"Entwurf"_s);
    EXPECT_TRUE(shows(u"Keine aktiven Timer"_s));
}

TEST_F(ProjectTimers, pauseAndResumeChangeTheButton) {
    bench.store.startTracking("Entwurf");
    open();
    advance(600);
    click(u"Pausieren"_s, u"Entwurf"_s);
    advance(600);
    EXPECT_EQ(durations(), std::vector<QString>{u"00:10:00"_s});
    EXPECT_EQ(button(u"Fortsetzen"_s, u"Entwurf"_s).toolTip(), u"Fortsetzen"_s);
    click(u"Fortsetzen"_s, u"Entwurf"_s);
    EXPECT_EQ(durations(), std::vector<QString>{u"00:20:00"_s});
    EXPECT_TRUE(button(u"Pausieren"_s, u"Entwurf"_s).isEnabled());
}

TEST_F(ProjectTimers, pausedRowIsOrangeAndARunningOneBlue) {
    bench.store.startTracking("Entwurf");
    open();
    const auto edge = [this] { return picture(*timerRows()[0]).pixelColor(6, 27); };
    EXPECT_TRUE(looksLike(edge(), Palette::of(ColorScheme::light).blue));
    click(u"Pausieren"_s, u"Entwurf"_s);
    EXPECT_TRUE(looksLike(edge(), Palette::of(ColorScheme::light).orangeFill));
}

TEST_F(ProjectTimers, stoppedTimerBecomesAnEntryOfTheList) {
    open();
    EXPECT_TRUE(shows(u"Noch keine Zeiterfassungen"_s));
    typeAndReturn(u"Entwurf"_s);
    advance(3600);
    click(u"Stoppen"_s, u"Entwurf"_s);
    EXPECT_TRUE(timerRows().empty());
    EXPECT_FALSE(shows(u"Noch keine Zeiterfassungen"_s));
    const auto* list = screen->findChild<QListView*>();
    ASSERT_EQ(list->model()->rowCount(), 1);
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), u"Entwurf"_s);
}

TEST_F(ProjectTimers, stoppingOneOfSeveralKeepsTheOthersInOrder) {
    for (const char* name : {"eins", "zwei", "drei"}) {
        bench.store.startTracking(name);
        bench.clock.advance(1);
    }
    open();
    QTest::mouseClick(&button(u"Stoppen"_s, u"zwei"_s), Qt::LeftButton);
    settle();
    ASSERT_EQ(timerRows().size(), 2U);
    EXPECT_EQ(timerRows()[0]->timer().taskName, "eins");
    EXPECT_EQ(timerRows()[1]->timer().taskName, "drei");
}

TEST_F(ProjectTimers, fourthTimerMakesTheRowsScrollWithinThreeAndAHalf) {
    open();
    const auto heightWith = [&](int timers) {
        while (std::cmp_less(bench.store.activeEntries->size(), timers))
            bench.store.startTracking("Entwurf");
        settle();
        return part<TimerList>(*screen).height() - 6;
    };
    EXPECT_EQ(heightWith(1), 54);
    EXPECT_EQ(heightWith(3), 174);
    EXPECT_EQ(heightWith(4), 207);
    EXPECT_EQ(heightWith(9), 207);
    EXPECT_EQ(timerRows().size(), 9U);
    EXPECT_EQ(screen->size(), sectionSize);
}

TEST_F(ProjectTimers, longNameIsElidedWithItsTooltip) {
    const QString name = u"Rückmeldungen aus dem Usability-Test in die Navigation einarbeiten"_s;
    bench.store.startTracking(name.toStdString());
    open();
    auto& label = part<ElidedLabel>(*timerRows()[0]);
    EXPECT_EQ(label.text(), name);
    const std::vector<Stroke> strokes = strokesOf(label);
    ASSERT_EQ(strokes.size(), 1U);
    EXPECT_TRUE(strokes[0].what.endsWith(u"…”"_s)) << strokes[0].what.toStdString();
    QHelpEvent asked(QEvent::ToolTip, {10, 5}, label.mapToGlobal(QPoint(10, 5)));
    QCoreApplication::sendEvent(&label, &asked);
    EXPECT_EQ(QToolTip::text(), name);
}

TEST_F(ProjectTimers, timersOfOtherProjectsAreNotListed) {
    bench.store.startTracking("hier");
    bench.store.addProject("Web", std::nullopt);
    bench.store.startTracking("dort");
    open();
    EXPECT_TRUE(shows(u"dort"_s));
    EXPECT_FALSE(shows(u"hier"_s));
    EXPECT_EQ(bench.store.activeEntries->size(), 2U);
}

TEST_F(ProjectTimers, secondRepaintsTheDurationAndNothingElse) {
    bench.store.addManualEntry(bench.project(0).id, bench.entry("Entwurf"));
    bench.store.startTracking("läuft");
    bench.store.startTracking("steht");
    open();
    const auto rows = timerRows();
    click(u"Pausieren"_s, u"steht"_s);
    const bool isFirstRunning = !rows[0]->timer().isPaused;
    auto& running = *rows[isFirstRunning ? 0 : 1];
    auto& paused = *rows[isFirstRunning ? 1 : 0];
    advance(1);
    PaintCounter list(entryList());
    PaintCounter name(part<ElidedLabel>(running));
    PaintCounter runningDuration(part<FigureLabel>(running));
    PaintCounter pausedDuration(part<FigureLabel>(paused));
    PaintCounter start(button(u"Start"_s));
    PaintCounter tab(button(u"Standardprojekt"_s));
    advance(5);
    EXPECT_EQ(runningDuration.count(), 1);
    EXPECT_EQ(pausedDuration.count(), 0);
    EXPECT_EQ(name.count(), 0);
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(start.count(), 0);
    EXPECT_EQ(tab.count(), 0);
}

TEST_F(ProjectTimers, nothingHappensWhileHidden) {
    bench.store.startTracking("Entwurf");
    open();
    const auto& label = part<FigureLabel>(*timerRows()[0]);
    screen->hide();
    advance(60);
    EXPECT_EQ(label.text(), u"00:00:00"_s);
    showActive(*screen);
    EXPECT_EQ(durations(), std::vector<QString>{u"00:01:00"_s});
}

TEST_F(ProjectTimers, keyboardIsBackInTheTaskFieldWhenTheWindowOpensAgain) {
    open();
    button(u"Kunde"_s).setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(taskField().hasFocus());
    screen->hide();
    showActive(*screen);
    EXPECT_EQ(screen->focusWidget(), &taskField());
}

TEST_F(ProjectTimers, textsOfTheRowsAreReadable) {
    bench.store.startTracking("Entwurf");
    open();
    advance(65);
    EXPECT_EQ(accessibleNameOf(part<FigureLabel>(*timerRows()[0])), u"00:01:05"_s);
    EXPECT_EQ(accessibleNameOf(button(u"Stoppen"_s)), u"Stoppen"_s);
    EXPECT_EQ(button(u"Stoppen"_s).accessibleDescription(), u"Entwurf"_s);
    EXPECT_EQ(button(u"Pausieren"_s).accessibleDescription(), u"Entwurf"_s);
    EXPECT_EQ(accessibleNameOf(taskField()), u"Aufgabe eingeben"_s);
}

} // namespace
} // namespace brisklog::test
