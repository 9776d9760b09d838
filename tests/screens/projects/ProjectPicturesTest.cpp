// The project screens as a person sees them.

#include "screens/Pictures.h"
#include "screens/projects/ProjectScreenBench.h"
#include "support/WritableStore.h"
#include "ui/controls/Menu.h"
#include "ui/sheets/Sheets.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr Date reference{816426000};

class ProjectPictures : public ProjectScreenBench {
protected:
    void addEntry(const std::string& name, double day, int startSeconds, int seconds) {
        TimeEntry entry;
        entry.id = Uuid::generate();
        entry.taskName = name;
        entry.startTime = reference.addingSeconds((day - 15) * 86400 - 9 * 3600 + startSeconds);
        entry.endTime = entry.startTime.addingSeconds(seconds);
        bench.store.addManualEntry(bench.project(0).id, entry);
    }

    static int at(int hours, int minutes, int seconds = 0) { return hours * 3600 + minutes * 60 + seconds; }

    void fill() {
        bench.store.updateProject(0, "Website-Relaunch Müller & Söhne", 95);
        for (const char* name :
             {"Steuerportal Größmann", "Onlineshop Käserei Allgäu", "Hörgeräte-App (Prototyp)",
              "Buchhaltung intern", "Schulungen Verwaltungshochschule Niedersachsen-Nord",
              "Newsletter Stadtwerke Görlitz", "Messestand-Konfigurator", "Übersetzung Produktkatalog",
              "Wartung Praxis Dr. Jäger", "Standardprojekt"})
            bench.store.addProject(name, 80);
        bench.store.selectedProjectIndex = 0;
        addEntry("Schriften lizenzieren", 12, at(16, 5), at(0, 30));
        addEntry("Bildbearbeitung Produktfotos", 13, at(10, 15, 21), at(4, 29, 41));
        addEntry("Komponentenbibliothek", 16, at(9, 0), at(8, 30));
        addEntry("Server-Umzug", 17, at(18, 20, 8), at(6, 45, 36));
        addEntry("Formular „Angebot anfordern“", 18, at(8, 20, 8), at(8, 35, 11));
        addEntry("Barrierefreiheit prüfen", 19, at(9, 12), at(2, 30, 33));
        for (int count = 6; count < 128; ++count)
            addEntry("Entwurf", 20, at(9, 0), at(1, 0));
    }

    void addTimers() {
        bench.clock.set(reference.addingSeconds(-5047));
        bench.store.startTracking("Rückmeldungen aus dem Usability-Test einarbeiten");
        bench.clock.advance(60);
        bench.store.startTracking("Telefonat Druckerei Jäger");
        bench.clock.advance(1122);
        pause("Telefonat Druckerei Jäger");
        bench.clock.set(reference);
        bench.store.selectedProjectIndex = 1;
        bench.store.startTracking("Beleg");
        pause("Beleg");
        bench.store.selectedProjectIndex = 6;
        bench.store.startTracking("Versand");
        bench.store.selectedProjectIndex = 0;
    }

    void pause(const std::string& taskName) {
        const auto timers = bench.store.activeEntries.get();
        for (const auto& [id, state] : timers)
            if (state.entry.taskName == taskName)
                bench.store.pauseTracking(id);
    }
};

TEST_F(ProjectPictures, project) {
    fill();
    addTimers();
    exportReport = [](const Project&) {};
    open();
    taskField().insert(u"Navigation für Tablet prüf"_s);
    takePictures(*screen, u"projekt"_s);
}

TEST_F(ProjectPictures, empty) {
    open();
    takePictures(*screen, u"projekt-leer"_s);
}

TEST_F(ProjectPictures, fewEntries) {
    fill();
    bench.store.resetProject(0);
    addEntry("Schriften lizenzieren", 12, at(16, 5), at(0, 30));
    addEntry("Bildbearbeitung Produktfotos", 13, at(10, 15, 21), at(100, 29, 41));
    addEntry("Bildbearbeitung Produktfotos und vieles mehr, das nicht mehr in die Zeile passt", 13,
             at(10, 15, 21), at(1100, 29, 41));
    open();
    takePictures(*screen, u"projekt-wenige"_s);
}

TEST_F(ProjectPictures, manyTimersAndLongNames) {
    bench.store.updateProject(0, "Donaudampfschifffahrtsgesellschaft, Abteilung für Fahrplanauskünfte", 95);
    for (const char* name : {"Erste Aufgabe mit einem sehr langen Namen, der nicht in die Zeile passt",
                             "Zweite", "Dritte", "Vierte", "Fünfte"}) {
        bench.store.startTracking(name);
        bench.clock.advance(1);
    }
    bench.clock.advance(100 * 3600 + 61);
    open();
    takePictures(*screen, u"projekt-lang"_s);
}

TEST_F(ProjectPictures, threeTabs) {
    bench.store.addProject("Web", 95);
    bench.store.addProject("Druck", 95);
    open();
    takePictures(*screen, u"projekt-drei"_s);
}

TEST_F(ProjectPictures, substitute) {
    bench.store.deleteProject(0);
    open();
    takePictures(*screen, u"projekt-fehler"_s);
}

TEST_F(ProjectPictures, tenThousandEntries) {
    writable(bench.store.projects).mutate([&](std::vector<Project>& projects) {
        for (int count = 0; count < 10000; ++count)
            projects[0].entries.push_back(bench.entry("Aufgabe " + std::to_string(count), 1 + count % 9));
    });
    bench.store.updateProject(0, "Zehntausend", 95);
    open();
    takePictures(*screen, u"projekt-10000"_s);
}

TEST_F(ProjectPictures, tabMenu) {
    fill();
    addTimers();
    open();
    click(u"Alle Projekte"_s);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    takePictures(*menu, u"projekt-tabs-menue"_s);
}

TEST_F(ProjectPictures, newProject) {
    open();
    click(u"Neues Projekt"_s);
    field(*sheet(), u"Projektname"_s).insert(u"Fährverbindung Königsw"_s);
    takePictures(*sheet(), u"neues-projekt"_s);
}

TEST_F(ProjectPictures, settings) {
    fill();
    open();
    click(u"Projekteinstellungen"_s);
    takePictures(*sheet(), u"projekteinstellungen"_s);
}

TEST_F(ProjectPictures, alert) {
    fill();
    open();
    click(u"Projekteinstellungen"_s);
    button(*sheet(), u"Projekt löschen"_s).click();
    settle();
    takePictures(*sheet(), u"hinweis-loeschen"_s);
}

} // namespace
} // namespace brisklog::test
