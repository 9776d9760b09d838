// The actions of a project's screen and its list of entries.

#include "screens/projects/ProjectScreenBench.h"
#include "support/Sanitizer.h"
#include "support/WritableStore.h"
#include "support/screen/PaintCounter.h"
#include "support/screen/ScreenReader.h"
#include "ui/controls/CountBadge.h"
#include "ui/controls/NavigationButton.h"
#include "ui/controls/SymbolButton.h"

#include <QElapsedTimer>
#include <QListView>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProjectEntries : public ProjectScreenBench {
protected:
    void addEntries(int count, std::size_t project = 0) {
        writable(bench.store.projects).mutate([&](std::vector<Project>& projects) {
            for (int i = 0; i < count; ++i)
                projects[project].entries.push_back(bench.entry("Aufgabe " + std::to_string(i), 1.5));
        });
    }

    [[nodiscard]] QListView& list() { return *screen->findChild<QListView*>(); }

    [[nodiscard]] QString countShown() { return part<CountBadge>(*screen).text(); }

    [[nodiscard]] std::vector<QString> labelsOf(QWidget& window) {
        std::vector<QString> texts;
        for (const auto* label : window.findChildren<QLabel*>())
            texts.push_back(label->text());
        return texts;
    }

    [[nodiscard]] bool says(QWidget& window, const QString& text) {
        return std::ranges::count(labelsOf(window), text) > 0;
    }
};

TEST_F(ProjectEntries, areCountedAndListed) {
    addEntries(12);
    open();
    EXPECT_EQ(countShown(), u"12"_s);
    EXPECT_TRUE(shows(u"Zeiterfassungen"_s));
    EXPECT_EQ(list().model()->rowCount(), 12);
}

TEST_F(ProjectEntries, thousandsAreCountedWithoutGrouping) {
    addEntries(12345);
    open();
    EXPECT_EQ(countShown(), u"12345"_s);
}

TEST_F(ProjectEntries, rowsTellScreenReadersEverything) {
    bench.store.updateProject(0, "Web", 60);
    addEntries(1);
    open();
    EXPECT_EQ(list().model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
              u"Aufgabe 0, 15.11.26, 07:30:00 bis 15.11.26, 09:00:00, 1\u00A0h 30\u00A0min, 90,00\u00A0€"_s);
    EXPECT_EQ(accessibleNameOf(list()), u"Zeiterfassungen"_s);
}

/// The rows stay where they are; what they show moves up.
TEST_F(ProjectEntries, tellScreenReadersWhatMovesUpWhenOneIsDeleted) {
    ScreenReader reader;
    addEntries(3);
    open();
    QAccessibleInterface& rows = reader.of(list());
    const QString second = rows.child(1)->text(QAccessible::Name);
    ASSERT_NE(rows.child(0)->text(QAccessible::Name), second);
    reader.forget();
    bench.store.deleteEntry(bench.project(0).id, bench.project(0).entries[0].id);
    settle();
    EXPECT_EQ(rows.child(0)->text(QAccessible::Name), second);
    EXPECT_EQ(reader.count(QAccessible::NameChanged, second), 1);
}

TEST_F(ProjectEntries, withoutAnySayWhatToDo) {
    open();
    EXPECT_TRUE(shows(u"Noch keine Zeiterfassungen"_s));
    EXPECT_TRUE(shows(u"Oben eine Aufgabe eingeben und „Start“ wählen. Gestoppte Timer erscheinen hier."_s));
    EXPECT_EQ(countShown(), u"0"_s);
}

TEST_F(ProjectEntries, keepTheirPlaceWhenOneIsAdded) {
    addEntries(200);
    open();
    list().verticalScrollBar()->setValue(777);
    bench.store.addManualEntry(bench.project(0).id, bench.entry("neu"));
    settle();
    EXPECT_EQ(list().model()->rowCount(), 201);
    EXPECT_EQ(list().verticalScrollBar()->value(), 777);
}

TEST_F(ProjectEntries, ofAnotherProjectStartAtTheTop) {
    bench.store.addProject("Web", std::nullopt);
    addEntries(200, 0);
    addEntries(200, 1);
    open();
    list().verticalScrollBar()->setValue(777);
    bench.store.selectedProjectIndex = 0;
    settle();
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
}

TEST_F(ProjectEntries, showWhatBecameOfThem) {
    bench.store.updateProject(0, "Web", 60);
    addEntries(3);
    open();
    PaintCounter painted(*list().viewport());
    bench.store.updateProject(0, "Web", 120);
    settle();
    EXPECT_GE(painted.count(), 1);
    EXPECT_TRUE(
        list().model()->index(0, 0).data(Qt::AccessibleTextRole).toString().endsWith(u"180,00\u00A0€"_s));
    bench.store.deleteEntry(bench.project(0).id, bench.project(0).entries[1].id);
    settle();
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_EQ(list().model()->index(1, 0).data().toString(), u"Aufgabe 2"_s);
}

TEST_F(ProjectEntries, goneBetweenTwoPaintsAreNoDanger) {
    addEntries(50);
    open();
    bench.store.resetProject(0);
    list().viewport()->repaint();
    EXPECT_EQ(list().model()->index(7, 0).data(), QVariant());
    bench.store.deleteProject(0);
    list().viewport()->repaint();
    settle();
    EXPECT_TRUE(shows(u"Fehler"_s));
}

TEST_F(ProjectEntries, longNameHasItsTooltip) {
    const QString name = u"Rückmeldungen aus dem Usability-Test in die Navigation einarbeiten"_s;
    bench.store.addManualEntry(bench.project(0).id, bench.entry(name.toStdString()));
    open();
    const QPoint onName(60, 15);
    QHelpEvent help(QEvent::ToolTip, onName, list().viewport()->mapToGlobal(onName));
    QCoreApplication::sendEvent(list().viewport(), &help);
    EXPECT_EQ(QToolTip::text(), name);
}

TEST_F(ProjectEntries, arrowsMoveThroughTheRows) {
    addEntries(100);
    open();
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list().currentIndex().row(), 0);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().currentIndex().row(), 1);
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(list().currentIndex().row(), 99);
    EXPECT_GT(list().verticalScrollBar()->value(), 0);
}

TEST_F(ProjectEntries, twentyFiveThousandOpenAndScrollWithoutAPause) {
    addEntries(25000);
    QElapsedTimer watch;
    watch.start();
    open();
    EXPECT_FALSE(screen->grab().isNull());
    const auto opened = watch.restart();
    for (int page = 0; page < 100; ++page) {
        list().verticalScrollBar()->setValue(page * 12000);
        list().viewport()->repaint();
    }
    const auto scrolled = watch.restart();
    for (const char* name : {"eins", "zwei", "drei"})
        bench.store.startTracking(name);
    settle();
    watch.restart();
    for (int tick = 0; tick < 100; ++tick)
        advance(1);
    const auto ticked = watch.elapsed();
    RecordProperty("openMilliseconds", static_cast<int>(opened));
    RecordProperty("hundredPagesMilliseconds", static_cast<int>(scrolled));
    RecordProperty("hundredTicksMilliseconds", static_cast<int>(ticked));
    // Far above what it takes, far below what visiting all rows would take.
    constexpr int slowness = underSanitizer ? 5 : 1;
    EXPECT_LT(opened, 1000 * slowness);
    EXPECT_LT(scrolled, 2000 * slowness);
    EXPECT_LT(ticked, 1000 * slowness);
}

TEST_F(ProjectEntries, areRemovedOnceTheAlertIsConfirmed) {
    addEntries(3);
    open();
    click(u"Alle Einträge löschen"_s);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_TRUE(says(*sheet(), u"Alle Einträge löschen?"_s));
    EXPECT_TRUE(says(*sheet(), u"Diese Aktion kann nicht rückgängig gemacht werden."_s));
    EXPECT_TRUE(button(*sheet(), u"Abbrechen"_s).hasFocus());
    button(*sheet(), u"Löschen"_s).click();
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_TRUE(bench.project(0).entries.empty());
    EXPECT_TRUE(shows(u"Noch keine Zeiterfassungen"_s));
}

TEST_F(ProjectEntries, stayWhenTheAlertIsCancelled) {
    addEntries(3);
    open();
    click(u"Alle Einträge löschen"_s);
    button(*sheet(), u"Abbrechen"_s).click();
    settle();
    click(u"Alle Einträge löschen"_s);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bench.project(0).entries.size(), 3U);
}

TEST_F(ProjectEntries, customersAreOpenedOverTheWindow) {
    std::vector<QWidget*> openedFrom;
    actions.openCustomers = [&](QWidget& from) { openedFrom.push_back(from.window()); };
    open();
    click(u"Kunde"_s);
    EXPECT_EQ(openedFrom, std::vector<QWidget*>{screen.get()});
}

TEST_F(ProjectEntries, askingForTheCustomersFromElsewhereOpensThem) {
    int opened = 0;
    actions.openCustomers = [&](QWidget&) { ++opened; };
    open();
    notifications.post("OpenCustomerManagement");
    EXPECT_EQ(opened, 1);
}

TEST_F(ProjectEntries, askingForTheCustomersOnceTheScreenIsGoneIsNoDanger) {
    int opened = 0;
    actions.openCustomers = [&](QWidget&) { ++opened; };
    open();
    screen.reset();
    notifications.post("OpenCustomerManagement");
    EXPECT_EQ(opened, 0);
}

TEST_F(ProjectEntries, invoiceIsOpenedForTheShownProject) {
    std::vector<int> opened;
    actions.openInvoice = [&](QWidget&, int projectIndex) { opened.push_back(projectIndex); };
    bench.store.addProject("Web", std::nullopt);
    open();
    click(u"Rechnung"_s);
    EXPECT_EQ(opened, std::vector<int>{1});
}

TEST_F(ProjectEntries, actionsShowTheirSymbols) {
    exportReport = [](const Project&) {};
    open();
    const auto expectSymbol = [this](const QString& name, QWidget& expected) {
        QAbstractButton& shown = button(name);
        expected.resize(shown.size());
        EXPECT_EQ(picture(shown), picture(expected)) << name.toStdString();
    };
    const auto expectAction = [&](const QString& icon, const QString& label, bool isAccent) {
        NavigationButton expected({.icon = icon, .label = label, .action = {}, .accent = isAccent});
        expectSymbol(label, expected);
    };
    expectAction(u"arrow.down.doc"_s, u"PDF Export"_s, false);
    expectAction(u"person.crop.circle"_s, u"Kunde"_s, false);
    expectAction(u"doc.text"_s, u"Rechnung"_s, true);
    SymbolButton gear(u"gearshape.fill"_s, {});
    expectSymbol(u"Projekteinstellungen"_s, gear);
    SymbolButton trash(u"trash"_s, {}, SymbolButton::Size::normal, SymbolButton::Purpose::deleting);
    expectSymbol(u"Alle Einträge löschen"_s, trash);
    SymbolButton trashAll(u"trash"_s, {});
    expectSymbol(u"Alle Daten zurücksetzen"_s, trashAll);
}

TEST_F(ProjectEntries, pdfExportIsDisabledWithoutAnyoneToDoIt) {
    open();
    EXPECT_FALSE(button(u"PDF Export"_s).isEnabled());
}

TEST_F(ProjectEntries, pdfExportIsAskedForTheShownProject) {
    std::vector<std::string> exported;
    exportReport = [&](const Project& project) { exported.push_back(project.name); };
    bench.store.addProject("Web", std::nullopt);
    open();
    click(u"PDF Export"_s);
    EXPECT_EQ(exported, std::vector<std::string>{"Web"});
}

TEST_F(ProjectEntries, withoutProjectTheSubstituteIsShownAndATimerCreatesTheDefaultOne) {
    bench.store.deleteProject(0);
    open();
    EXPECT_TRUE(shows(u"Fehler"_s));
    EXPECT_FALSE(button(u"Rechnung"_s).isEnabled());
    QTest::keyClicks(&taskField(), u"Entwurf"_s);
    QTest::keyClick(&taskField(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(shows(u"Standardprojekt"_s));
    EXPECT_TRUE(shows(u"Entwurf"_s));
    EXPECT_TRUE(button(u"Rechnung"_s).isEnabled());
}

TEST_F(ProjectEntries, theEmptyStateStandsAboveTheMiddle) {
    open();
    const auto* const headline = findNamed<QLabel>(*screen, u"Noch keine Zeiterfassungen"_s);
    EXPECT_NEAR(headline->mapTo(screen.get(), headline->rect().center()).y(), 408, 1);
}

} // namespace
} // namespace brisklog::test
