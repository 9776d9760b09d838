// A timer that has just been started and the entry of one that has just been stopped are seen at once.

#include "app/projects/screens/TimerPanel.h"
#include "screens/Pictures.h"
#include "screens/projects/ProjectScreenBench.h"
#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVariantAnimation>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProjectNewcomers : public ProjectScreenBench {
protected:
    /// Shows a project that has that many entries and timers.
    void openWith(int entries, int timers) {
        bench.store.addProject("Website", 60);
        for (int i = 0; i < entries; ++i)
            bench.store.addManualEntry(bench.project(0).id, bench.entry("Aufgabe " + std::to_string(i)));
        bench.store.selectedProjectIndex = 0;
        for (int i = 0; i < timers; ++i)
            startFromElsewhere();
        open();
    }

    void startFromElsewhere() {
        bench.clock.advance(60);
        bench.store.startTracking("Timer " + std::to_string(bench.store.activeEntries->size()));
    }

    void start(const QString& task) {
        bench.clock.advance(60);
        QTest::keyClicks(&taskField(), task);
        QTest::keyClick(&taskField(), Qt::Key_Return);
        settle();
        // Until the field can be typed in again.
        advance(0.5);
    }

    [[nodiscard]] QListView& list() { return part<QListView>(*screen); }

    [[nodiscard]] QRect lastRow() {
        return list().visualRect(list().model()->index(list().model()->rowCount() - 1, 0));
    }

    [[nodiscard]] bool isLastRowInView() { return list().viewport()->rect().contains(lastRow()); }

    /// A pixel of the last entry's ground.
    [[nodiscard]] QColor groundOfLastRow() {
        return picture(*screen).pixelColor(list().viewport()->mapTo(screen.get(), lastRow().center()) +
                                           QPoint(0, 20));
    }

    [[nodiscard]] TimerPanel* timer(const QString& task) {
        for (QWidget* const widget : screen->findChildren<QWidget*>())
            if (auto* const panel = dynamic_cast<TimerPanel*>(widget);
                panel && panel->isVisible() && panel->timer().taskName == task.toStdString())
                return panel;
        return nullptr;
    }

    [[nodiscard]] bool isInView(const TimerPanel& panel) {
        const QWidget& seen = *part<QScrollArea>(*screen).viewport();
        return seen.rect().contains(QRect(panel.mapTo(&seen, QPoint()), panel.size()));
    }

    [[nodiscard]] static QColor groundOf(TimerPanel& panel) {
        return picture(panel).pixelColor(panel.rect().center() + QPoint(0, 22));
    }

    /// Lets every movement come to its end; returns how many there were.
    int finishMovements() {
        const auto running = screen->findChildren<QVariantAnimation*>();
        for (auto* const movement : running)
            movement->setCurrentTime(movement->duration());
        settle();
        return static_cast<int>(running.size());
    }
};

TEST_F(ProjectNewcomers, aStoppedTimersEntryComesIntoView) {
    openWith(30, 1);
    click(u"Stoppen"_s);
    ASSERT_EQ(list().model()->rowCount(), 31);
    EXPECT_TRUE(isLastRowInView());
}

TEST_F(ProjectNewcomers, anEntryThatNoTimerHasLeftMovesNothing) {
    installLook(*qApp, Motion::full);
    openWith(30, 1);
    bench.store.addManualEntry(bench.project(0).id, bench.entry("Nachgetragen"));
    settle();
    EXPECT_EQ(list().model()->rowCount(), 31);
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    EXPECT_EQ(finishMovements(), 0);
}

TEST_F(ProjectNewcomers, theFirstEntryOfAllIsShown) {
    openWith(0, 1);
    click(u"Stoppen"_s);
    EXPECT_TRUE(isLastRowInView());
}

TEST_F(ProjectNewcomers, theNewEntrysGroundFadesOnce) {
    installLook(*qApp, Motion::full);
    openWith(30, 1);
    click(u"Stoppen"_s);
    const QColor atFirst = groundOfLastRow();
    EXPECT_EQ(finishMovements(), 1);
    const QColor atLast = groundOfLastRow();
    EXPECT_NE(atFirst, atLast);
    bench.runLoop.advance(5);
    EXPECT_EQ(finishMovements(), 0);
    EXPECT_EQ(groundOfLastRow(), atLast);
}

TEST_F(ProjectNewcomers, theLastOfSeveralStoppedInARowFadesFromTheBeginning) {
    installLook(*qApp, Motion::full);
    openWith(30, 2);
    click(u"Stoppen"_s);
    for (auto* const movement : screen->findChildren<QVariantAnimation*>())
        movement->setCurrentTime(movement->duration() - 1);
    click(u"Stoppen"_s);
    const QColor atFirst = groundOfLastRow();
    EXPECT_EQ(finishMovements(), 1);
    EXPECT_NE(atFirst, groundOfLastRow());
    EXPECT_TRUE(isLastRowInView());
}

TEST_F(ProjectNewcomers, lookAsTheyShould) {
    installLook(*qApp, Motion::full);
    openWith(30, 4);
    start(u"Telefonat"_s);
    click(u"Stoppen"_s);
    for (auto* const movement : screen->findChildren<QVariantAnimation*>()) {
        movement->pause();
        movement->setCurrentTime(0);
    }
    takePictures(*screen, u"projekt-neu"_s);
}

TEST_F(ProjectNewcomers, withReducedMotionNothingFades) {
    openWith(30, 1);
    click(u"Stoppen"_s);
    EXPECT_EQ(finishMovements(), 0);
    EXPECT_EQ(groundOfLastRow(), Palette::current().card);
}

TEST_F(ProjectNewcomers, aTimerStartedBelowTheFoldComesIntoView) {
    openWith(0, 4);
    start(u"Telefonat"_s);
    ASSERT_NE(timer(u"Telefonat"_s), nullptr);
    EXPECT_TRUE(isInView(*timer(u"Telefonat"_s)));
    start(u"Sitzung"_s);
    EXPECT_TRUE(isInView(*timer(u"Sitzung"_s)));
}

TEST_F(ProjectNewcomers, theNewTimersGroundFadesOnce) {
    installLook(*qApp, Motion::full);
    openWith(0, 1);
    start(u"Neuer"_s);
    const QColor atFirst = groundOf(*timer(u"Neuer"_s));
    EXPECT_NE(atFirst, groundOf(*timer(u"Timer 0"_s)));
    EXPECT_EQ(finishMovements(), 1);
    EXPECT_EQ(groundOf(*timer(u"Neuer"_s)), groundOf(*timer(u"Timer 0"_s)));
    bench.runLoop.advance(5);
    EXPECT_EQ(finishMovements(), 0);
}

TEST_F(ProjectNewcomers, whatAnotherTabShowsIsNotNew) {
    openWith(30, 5);
    bench.store.addProject("Ohne alles", std::nullopt);
    settle();
    installLook(*qApp, Motion::full);
    bench.store.selectedProjectIndex = 0;
    settle();
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    EXPECT_EQ(part<QScrollArea>(*screen).verticalScrollBar()->value(), 0);
    // The section's picture fades; nothing in it does.
    EXPECT_EQ(finishMovements(), 1);
}

TEST_F(ProjectNewcomers, aPausedAndResumedTimerIsNotNew) {
    installLook(*qApp, Motion::full);
    openWith(0, 5);
    click(u"Pausieren"_s);
    click(u"Fortsetzen"_s);
    EXPECT_EQ(finishMovements(), 0);
    EXPECT_EQ(part<QScrollArea>(*screen).verticalScrollBar()->value(), 0);
}

TEST_F(ProjectNewcomers, nothingScrollsUnderAPressedMouseButton) {
    openWith(30, 5);
    const QPoint onRow = list().viewport()->mapTo(screen.get(), QPoint(40, 20));
    QTest::mousePress(screen->windowHandle(), Qt::LeftButton, {}, onRow);
    click(u"Stoppen"_s);
    startFromElsewhere();
    settle();
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    EXPECT_EQ(part<QScrollArea>(*screen).verticalScrollBar()->value(), 0);
    QTest::mouseRelease(screen->windowHandle(), Qt::LeftButton, {}, onRow);
    settle();
    EXPECT_TRUE(isLastRowInView());
    EXPECT_TRUE(isInView(*timer(u"Timer 4"_s)));
}

} // namespace
} // namespace brisklog::test
