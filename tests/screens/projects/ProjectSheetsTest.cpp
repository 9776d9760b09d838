// The sheets that create, edit and delete a project.

#include "screens/projects/ProjectScreenBench.h"
#include "support/screen/ScreenReader.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProjectSheets : public ProjectScreenBench {
protected:
    void openNewProject() {
        open();
        click(u"Neues Projekt"_s);
        ASSERT_NE(sheet(), nullptr);
    }

    void openSettings() {
        bench.store.addProject("Web", 95);
        open();
        click(u"Projekteinstellungen"_s);
        ASSERT_NE(sheet(), nullptr);
    }

    void type(const QString& fieldName, const QString& text) {
        QLineEdit& target = field(*sheet(), fieldName);
        target.selectAll();
        QTest::keyClicks(&target, text);
    }

    void press(const QString& name) {
        button(*sheet(), name).click();
        settle();
    }

    void createWith(const QString& name, const QString& rate) {
        openNewProject();
        type(u"Projektname"_s, name);
        type(u"Stundensatz (optional)"_s, rate);
        press(u"Erstellen"_s);
    }
};

TEST_F(ProjectSheets, newProjectOpensInItsName) {
    openNewProject();
    EXPECT_EQ(sheet()->windowTitle(), u"Neues Projekt erstellen"_s);
    EXPECT_EQ(sheet()->size(), QSize(400, 252));
    EXPECT_TRUE(field(*sheet(), u"Projektname"_s).hasFocus());
    EXPECT_EQ(field(*sheet(), u"Projektname"_s).placeholderText(), u"Projektname eingeben"_s);
}

TEST_F(ProjectSheets, newProjectIsCreatedAndShown) {
    createWith(u"  Web "_s, u"85,50"_s);
    EXPECT_EQ(sheet(), nullptr);
    ASSERT_EQ(bench.store.projects->size(), 2U);
    EXPECT_EQ(bench.project(1).name, "Web");
    EXPECT_EQ(bench.project(1).hourlyRate, 85.5);
    EXPECT_TRUE(shows(u"Web"_s));
}

TEST_F(ProjectSheets, rateThatIsNoNumberCreatesAProjectWithoutRate) {
    createWith(u"Web"_s, u"abc"_s);
    ASSERT_EQ(bench.store.projects->size(), 2U);
    EXPECT_EQ(bench.project(1).hourlyRate, std::nullopt);
}

TEST_F(ProjectSheets, nameOfOnlySpacesLeavesTheSheetOpen) {
    createWith(u"   "_s, u"85"_s);
    EXPECT_NE(sheet(), nullptr);
    EXPECT_EQ(bench.store.projects->size(), 1U);
}

TEST_F(ProjectSheets, returnCreatesFromEitherField) {
    openNewProject();
    type(u"Projektname"_s, u"Web"_s);
    QTest::keyClick(&field(*sheet(), u"Stundensatz (optional)"_s), Qt::Key_Return);
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bench.store.projects->size(), 2U);
}

TEST_F(ProjectSheets, newProjectCanBeLeftInThreeWays) {
    openNewProject();
    type(u"Projektname"_s, u"Web"_s);
    press(u"Abbrechen"_s);
    EXPECT_EQ(sheet(), nullptr);
    click(u"Neues Projekt"_s);
    EXPECT_EQ(field(*sheet(), u"Projektname"_s).text(), QString());
    press(u"Schließen"_s);
    EXPECT_EQ(sheet(), nullptr);
    click(u"Neues Projekt"_s);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bench.store.projects->size(), 1U);
    EXPECT_TRUE(bench.files.written.empty());
}

TEST_F(ProjectSheets, settingsStartWithTheProject) {
    openSettings();
    EXPECT_EQ(sheet()->windowTitle(), u"Projekteinstellungen"_s);
    EXPECT_EQ(sheet()->size(), QSize(400, 252));
    EXPECT_EQ(field(*sheet(), u"Projektname"_s).text(), u"Web"_s);
    EXPECT_EQ(field(*sheet(), u"Stundensatz (€, optional)"_s).text(), u"95.00"_s);
    EXPECT_TRUE(field(*sheet(), u"Projektname"_s).hasFocus());
}

TEST_F(ProjectSheets, settingsAreSaved) {
    openSettings();
    type(u"Projektname"_s, u" Netz "_s);
    type(u"Stundensatz (€, optional)"_s, u"85,50"_s);
    press(u"Speichern"_s);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bench.project(1).name, "Netz");
    EXPECT_EQ(bench.project(1).hourlyRate, 85.5);
    EXPECT_TRUE(shows(u"Netz"_s));
}

TEST_F(ProjectSheets, settingsAreDroppedWhenCancelled) {
    openSettings();
    type(u"Projektname"_s, u"Netz"_s);
    press(u"Abbrechen"_s);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(bench.project(1).name, "Web");
}

TEST_F(ProjectSheets, deletingAsksAndThenClosesBoth) {
    openSettings();
    press(u"Projekt löschen"_s);
    EXPECT_EQ(sheet()->windowTitle(), u"Projekt löschen?"_s);
    QStringList texts;
    for (const auto* label : sheet()->findChildren<QLabel*>())
        texts.push_back(label->text());
    EXPECT_TRUE(texts.contains(u"Diese Aktion kann nicht rückgängig gemacht werden. Alle Zeiterfassungen "
                               "dieses Projekts werden gelöscht."_s));
    press(u"Löschen"_s);
    EXPECT_EQ(sheet(), nullptr);
    ASSERT_EQ(bench.store.projects->size(), 1U);
    EXPECT_TRUE(shows(u"Standardprojekt"_s));
}

TEST_F(ProjectSheets, cancellingTheAlertReturnsToTheSettings) {
    openSettings();
    press(u"Projekt löschen"_s);
    press(u"Abbrechen"_s);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->windowTitle(), u"Projekteinstellungen"_s);
    EXPECT_EQ(bench.store.projects->size(), 2U);
}

TEST_F(ProjectSheets, deletingTheOnlyProjectShowsTheSubstitute) {
    open();
    click(u"Projekteinstellungen"_s);
    press(u"Projekt löschen"_s);
    press(u"Löschen"_s);
    EXPECT_TRUE(shows(u"Fehler"_s));
    click(u"Projekteinstellungen"_s);
    EXPECT_EQ(field(*sheet(), u"Projektname"_s).text(), QString());
    press(u"Speichern"_s);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_TRUE(bench.store.projects->empty());
}

TEST_F(ProjectSheets, noTabIsMarkedOverTheSubstituteUntilOneIsChosen) {
    open();
    bench.store.deleteProject(0);
    settle();
    const auto isMarked = [this] { return ScreenReader::of(button(u"Auto-Tracking"_s)).state().selected; };
    EXPECT_TRUE(shows(u"Fehler"_s));
    EXPECT_FALSE(isMarked());
    click(u"Auto-Tracking"_s);
    EXPECT_TRUE(isMarked());
    EXPECT_FALSE(shows(u"Fehler"_s));
}

TEST_F(ProjectSheets, keyboardReturnsToTheTaskField) {
    openNewProject();
    press(u"Abbrechen"_s);
    EXPECT_TRUE(taskField().hasFocus());
}

TEST_F(ProjectSheets, tabOrderIsFieldsFooterHeader) {
    openNewProject();
    QStringList order;
    for (int i = 0; i < 5; ++i) {
        order.push_back(accessibleNameOf(*sheet()->focusWidget()));
        QTest::keyClick(sheet()->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{u"Projektname"_s, u"Stundensatz (optional)"_s, u"Abbrechen"_s,
                                  u"Erstellen"_s, u"Schließen"_s}));
}

} // namespace
} // namespace brisklog::test
