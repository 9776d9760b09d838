// The strip of tabs: choosing, stepping, overflow, the new project and the reset.

#include "app/projects/screens/ProjectTabStrip.h"
#include "screens/projects/ProjectScreenBench.h"
#include "support/WritableStore.h"
#include "support/screen/ScreenReader.h"

#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProjectTabsOnScreen : public ProjectScreenBench {
protected:
    void addProjects(int count) {
        for (int i = 1; i <= count; ++i)
            bench.store.addProject("Projekt Nummer " + std::to_string(i), std::nullopt);
        bench.store.selectedProjectIndex = 0;
    }

    [[nodiscard]] QWidget& strip() {
        for (auto* widget : screen->findChildren<QWidget*>())
            if (dynamic_cast<ProjectTabStrip*>(widget))
                return *widget;
        std::abort();
    }

    /// Captions of the visible tabs, from left to right.
    [[nodiscard]] QStringList tabsSeen() {
        std::map<int, QString> byPlace;
        for (auto* child : strip().findChildren<QAbstractButton*>())
            if (auto* tab = dynamic_cast<ProjectTabButton*>(child); tab && tab->isVisible())
                byPlace[tab->x()] = tab->caption();
        QStringList captions;
        for (const auto& [x, caption] : byPlace)
            captions.push_back(caption);
        return captions;
    }

    [[nodiscard]] static QString focusedName() { return accessibleNameOf(*QApplication::focusWidget()); }

    [[nodiscard]] bool isSelected(const QString& tab) {
        return ScreenReader::of(button(tab)).state().selected;
    }

    void wheel(int delta) {
        const QPointF at = strip().rect().center();
        QWheelEvent event(at, strip().mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&strip(), &event);
        settle();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }

    [[nodiscard]] bool isAutoTrackingShown() { return shows(u"Panel der automatischen Zeiterfassung"_s); }

    void showPanelInItsTab() {
        actions.makeAutoTrackingPanel = [this] {
            ++panelsMade;
            return new QLabel(u"Panel der automatischen Zeiterfassung"_s);
        };
    }

    int panelsMade = 0;
};

TEST_F(ProjectTabsOnScreen, nameTheirProjectsAndAutoTracking) {
    bench.store.addProject("Web", std::nullopt);
    open();
    EXPECT_EQ(tabsSeen(), (QStringList{u"Standardprojekt"_s, u"Web"_s, u"Auto-Tracking"_s}));
}

TEST_F(ProjectTabsOnScreen, clickShowsTheProject) {
    bench.store.addProject("Web", std::nullopt);
    open();
    QTest::mouseClick(&button(u"Standardprojekt"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
    EXPECT_TRUE(shows(u"Standardprojekt"_s));
    EXPECT_TRUE(isSelected(u"Standardprojekt"_s));
    EXPECT_FALSE(isSelected(u"Web"_s));
}

TEST_F(ProjectTabsOnScreen, areAListOfTabsForTheScreenReaderOfWhichOneIsSelected) {
    bench.store.addProject("Web", std::nullopt);
    open();
    auto& web = ScreenReader::of(button(u"Web"_s));
    EXPECT_EQ(web.role(), QAccessible::PageTab);
    EXPECT_EQ(web.parent()->role(), QAccessible::PageTabList);
    EXPECT_EQ(web.parent()->text(QAccessible::Name), u"Projekte"_s);
    EXPECT_FALSE(web.state().checkable);
    ScreenReader reader;
    ScreenReader::act(ScreenReader::of(button(u"Standardprojekt"_s)),
                      QAccessibleActionInterface::pressAction());
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
    EXPECT_TRUE(isSelected(u"Standardprojekt"_s));
    EXPECT_FALSE(isSelected(u"Web"_s));
    EXPECT_EQ(reader.count(QAccessible::SelectionAdd, u"Standardprojekt"_s), 1);
    EXPECT_EQ(reader.count(QAccessible::SelectionRemove, u"Web"_s), 1);
}

TEST_F(ProjectTabsOnScreen, tellTheScreenReaderOfAnotherProjectUnlessItsTabGetsTheFocus) {
    bench.store.addProject("Web", std::nullopt);
    ScreenReader reader;
    open();
    EXPECT_EQ(reader.announced(), QStringList());
    taskField().setFocus();
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(reader.announced(), QStringList{u"Angezeigt: Standardprojekt"_s});
    button(u"Standardprojekt"_s).setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(focusedName(), u"Web"_s);
    EXPECT_EQ(reader.announced().size(), 1);
}

TEST_F(ProjectTabsOnScreen, autoTrackingShowsItsPanelAndKeepsTheProject) {
    showPanelInItsTab();
    bench.store.addProject("Web", std::nullopt);
    open();
    EXPECT_EQ(panelsMade, 0);
    click(u"Auto-Tracking"_s);
    EXPECT_TRUE(isAutoTrackingShown());
    EXPECT_FALSE(shows(u"Aktive Zeiterfassung"_s));
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    click(u"Web"_s);
    EXPECT_FALSE(isAutoTrackingShown());
    EXPECT_TRUE(shows(u"Web"_s));
    click(u"Auto-Tracking"_s);
    EXPECT_EQ(panelsMade, 1);
}

TEST_F(ProjectTabsOnScreen, followTheStore) {
    bench.store.addProject("Web", std::nullopt);
    open();
    click(u"Auto-Tracking"_s);
    bench.store.addProject("Druck", std::nullopt);
    settle();
    EXPECT_TRUE(shows(u"Druck"_s));
    EXPECT_TRUE(isSelected(u"Druck"_s));
    bench.store.resetAllData();
    settle();
    EXPECT_EQ(tabsSeen(), (QStringList{u"Standardprojekt"_s, u"Auto-Tracking"_s}));
}

TEST_F(ProjectTabsOnScreen, moreThanFitAreListedInTheMenu) {
    addProjects(10);
    open();
    EXPECT_EQ(tabsSeen(), (QStringList{u"Standardprojekt"_s, u"Projekt Nummer 1"_s, u"Auto-Tracking"_s}));
    EXPECT_EQ(button(u"Alle Projekte"_s).text(), u"11"_s);
    click(u"Alle Projekte"_s);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->width(), 322);
    for (int i = 0; i < 7; ++i)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.store.selectedProjectIndex, 7);
    EXPECT_EQ(tabsSeen(), (QStringList{u"Projekt Nummer 7"_s, u"Projekt Nummer 8"_s, u"Auto-Tracking"_s}));
}

TEST_F(ProjectTabsOnScreen, menuEndsWithAutoTracking) {
    showPanelInItsTab();
    addProjects(10);
    open();
    click(u"Alle Projekte"_s);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(isAutoTrackingShown());
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
}

TEST_F(ProjectTabsOnScreen, autoTrackingIsASymbolWithATooltipWhereRoomIsShort) {
    addProjects(10);
    open();
    QWidget& tab = button(u"Auto-Tracking"_s);
    EXPECT_EQ(tab.width(), 32);
    EXPECT_EQ(tab.toolTip(), u"Auto-Tracking"_s);
    click(u"Auto-Tracking"_s);
    EXPECT_GT(tab.width(), 100);
    EXPECT_EQ(tab.toolTip(), QString());
}

TEST_F(ProjectTabsOnScreen, longNamesAreElidedWithTheirTooltip) {
    const QString name = u"Donaudampfschifffahrtsgesellschaft <b>Nord</b> & Söhne"_s;
    bench.store.updateProject(0, name.toStdString(), std::nullopt);
    open();
    QWidget& tab = button(QString(name).replace(u'&', u"&&"_s));
    EXPECT_EQ(tab.width(), 146);
    EXPECT_TRUE(tab.toolTip().contains(u"Donaudampfschifffahrtsgesellschaft &lt;b&gt;Nord"_s));
    EXPECT_EQ(dynamic_cast<ProjectTabButton&>(tab).caption(), name);
}

TEST_F(ProjectTabsOnScreen, sayInWordsWhatTheirTimersDo) {
    open();
    EXPECT_EQ(button(u"Standardprojekt"_s).toolTip(), QString());
    bench.store.startTracking("läuft");
    settle();
    EXPECT_EQ(button(u"Standardprojekt"_s).toolTip(), u"Standardprojekt – Timer läuft"_s);
    EXPECT_EQ(button(u"Standardprojekt"_s).accessibleDescription(), u"Timer läuft"_s);
    click(u"Pausieren"_s);
    EXPECT_EQ(button(u"Standardprojekt"_s).accessibleDescription(), u"Pausiert"_s);
}

TEST_F(ProjectTabsOnScreen, controlPageKeysStepFromAnywhere) {
    showPanelInItsTab();
    addProjects(2);
    open();
    ASSERT_TRUE(taskField().hasFocus());
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    EXPECT_TRUE(taskField().hasFocus());
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(isAutoTrackingShown());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(bench.store.selectedProjectIndex, 2);
    EXPECT_FALSE(isAutoTrackingShown());
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectTabsOnScreen, wheelOverTheStripSteps) {
    addProjects(2);
    open();
    wheel(-120);
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    wheel(120);
    wheel(120);
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
}

TEST_F(ProjectTabsOnScreen, smallWheelMovementsAddUp) {
    addProjects(2);
    open();
    for (int i = 0; i < 3; ++i)
        wheel(-30);
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
    wheel(-30);
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
}

TEST_F(ProjectTabsOnScreen, arrowsStepAndTheKeyboardFollows) {
    showPanelInItsTab();
    addProjects(5);
    open();
    button(u"Standardprojekt"_s).setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    EXPECT_TRUE(button(u"Projekt Nummer 1"_s).hasFocus());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(bench.store.selectedProjectIndex, 0);
    EXPECT_TRUE(button(u"Standardprojekt"_s).hasFocus());
    for (int i = 0; i < 6; ++i)
        press(Qt::Key_Right);
    EXPECT_TRUE(isAutoTrackingShown());
    EXPECT_TRUE(button(u"Auto-Tracking"_s).hasFocus());
    press(Qt::Key_Left);
    EXPECT_TRUE(button(u"Projekt Nummer 5"_s).hasFocus());
}

TEST_F(ProjectTabsOnScreen, tabKeyGoesThroughTheScreenInReadingOrder) {
    addProjects(10);
    bench.store.startTracking("läuft");
    bench.store.addManualEntry(bench.project(0).id, bench.entry("Entwurf"));
    exportReport = [](const Project&) {};
    open();
    button(u"Standardprojekt"_s).setFocus(Qt::TabFocusReason);
    QStringList order;
    for (int i = 0; i < 15; ++i) {
        order.push_back(accessibleNameOf(*QApplication::focusWidget()));
        press(Qt::Key_Tab);
    }
    const QStringList expected{u"Standardprojekt"_s,
                               u"Alle Projekte"_s,
                               u"Auto-Tracking"_s,
                               u"Neues Projekt"_s,
                               u"Alle Daten zurücksetzen"_s,
                               u"Projekteinstellungen"_s,
                               u"Aufgabe eingeben"_s,
                               u"Start"_s,
                               u"Pausieren"_s,
                               u"Stoppen"_s,
                               u"PDF Export"_s,
                               u"Kunde"_s,
                               u"Rechnung"_s,
                               u"Alle Einträge löschen"_s,
                               u"Zeiterfassungen"_s};
    EXPECT_EQ(order, expected) << order.join(u", "_s).toStdString();
}

TEST_F(ProjectTabsOnScreen, resettingAsksFirst) {
    bench.store.addProject("Web", std::nullopt);
    bench.store.startTracking("läuft");
    open();
    click(u"Alle Daten zurücksetzen"_s);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->windowTitle(), u"Alle Daten löschen?"_s);
    QStringList texts;
    for (const auto* label : sheet()->findChildren<QLabel*>())
        texts.push_back(label->text());
    EXPECT_TRUE(texts.contains(u"Diese Aktion kann nicht rückgängig gemacht werden. Alle Projekte und "
                               "Zeiterfassungen werden gelöscht."_s));
    button(*sheet(), u"Abbrechen"_s).click();
    settle();
    EXPECT_EQ(bench.store.projects->size(), 2U);
    click(u"Alle Daten zurücksetzen"_s);
    button(*sheet(), u"Löschen"_s).click();
    settle();
    EXPECT_EQ(bench.store.projects->size(), 1U);
    EXPECT_TRUE(bench.store.activeEntries->empty());
    EXPECT_EQ(tabsSeen(), (QStringList{u"Standardprojekt"_s, u"Auto-Tracking"_s}));
}

TEST_F(ProjectTabsOnScreen, thousandProjectsOpenAtOnce) {
    writable(bench.store.projects).mutate([](std::vector<Project>& projects) {
        for (int i = 0; i < 1000; ++i)
            projects.push_back({.id = Uuid::generate(),
                                .name = "Projekt Nummer " + std::to_string(i),
                                .hourlyRate = {},
                                .entries = {}});
    });
    open();
    EXPECT_EQ(tabsSeen().size(), 3);
    EXPECT_EQ(button(u"Alle Projekte"_s).text(), u"1001"_s);
    click(u"Alle Projekte"_s);
    EXPECT_LE(QApplication::activePopupWidget()->height(), 14 * 28 + 10);
}

} // namespace
} // namespace brisklog::test
