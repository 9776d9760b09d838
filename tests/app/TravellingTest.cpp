// The time zone changes while the program runs: everything on screen follows at the next tick, new documents
// at once.

#include "app/WholeProgram.h"
#include "support/PdfReader.h"
#include "support/screen/PaintCounter.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QListView>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

class Travelling : public WholeProgram {
protected:
    Travelling() {
        clock.setZone("Europe/Berlin");
        statusItem->click();
        settle();
    }

    /// Returns once the store has ticked.
    void travelTo(const char* zone) {
        clock.setZone(zone);
        wait(1);
    }

    void wait(TimeInterval seconds) {
        runLoop.advance(seconds);
        settle();
    }

    /// Whether any window shows a label with that text or a control with that name.
    static bool shows(const QString& text) {
        return std::ranges::any_of(QApplication::allWidgets(), [&text](QWidget* widget) {
            const auto* label = qobject_cast<QLabel*>(widget);
            return widget->isVisible() &&
                   ((label != nullptr && label->text() == text) || accessibleNameOf(*widget) == text);
        });
    }

    /// The visible list with that name.
    static QListView& list(const QString& name) {
        for (QWidget* const widget : QApplication::allWidgets())
            if (auto* const found = qobject_cast<QListView*>(widget);
                found != nullptr && found->isVisible() && found->accessibleName() == name)
                return *found;
        ADD_FAILURE() << "no list " << name.toStdString();
        std::abort();
    }

    /// The text that a screen reader reads for a row of the list.
    static std::string spoken(const QString& listName, int row) {
        return list(listName).model()->index(row, 0).data(Qt::AccessibleTextRole).toString().toStdString();
    }

    void recordAnHour() {
        startTimer(u"Entwurf"_s);
        clock.advance(3600);
        click(u"Stoppen"_s);
    }

    [[nodiscard]] std::string savedDocument() {
        const auto file = home.path() / "Dokument.pdf";
        savePanel.answer(file);
        return PdfReader(readFile(file)).readText();
    }
};

TEST_F(Travelling, theDashboardShowsTheTimeOfThePlace) {
    startTimer(u"Entwurf"_s);
    click(u"Dashboard"_s);
    EXPECT_TRUE(shows(u"Gestartet: 10:00"_s));
    EXPECT_TRUE(shows(u"Sonntag, 15. November 2026"_s));
    travelTo("Pacific/Kiritimati");
    EXPECT_TRUE(shows(u"Gestartet: 23:00"_s));
    clock.advance(3600);
    wait(1);
    EXPECT_TRUE(shows(u"Montag, 16. November 2026"_s));
}

TEST_F(Travelling, rowsOfEntriesAreDrawnAnew) {
    recordAnHour();
    EXPECT_THAT(spoken(u"Zeiterfassungen"_s, 0),
                StartsWith("Entwurf, 15.11.26, 10:00:00 bis 15.11.26, 11:00:01"));
    wait(1);
    const PaintCounter paints(*list(u"Zeiterfassungen"_s).viewport());
    wait(5);
    EXPECT_EQ(paints.count(), 0) << "nothing is painted when nothing has changed";
    travelTo("Asia/Tokyo");
    EXPECT_EQ(paints.count(), 1);
    EXPECT_THAT(spoken(u"Zeiterfassungen"_s, 0),
                StartsWith("Entwurf, 15.11.26, 18:00:00 bis 15.11.26, 19:00:01"));
}

TEST_F(Travelling, theCalendarMarksTheDayThatTheRecordLiesOnThere) {
    click(u"Auto-Tracking"_s);
    click(u"Automatische Zeiterfassung"_s);
    for (const char* const application : {"Editor", "Browser", "Editor"}) {
        frontmost.show(application, application);
        wait(5);
    }
    EXPECT_TRUE(shows(u"15. November 2026, mit Daten"_s));
    travelTo("America/New_York");
    EXPECT_TRUE(shows(u"14. November 2026, mit Daten"_s)) << "Berlin's midnight falls on the day before";
    EXPECT_FALSE(shows(u"15. November 2026, mit Daten"_s));
}

TEST_F(Travelling, documentsAreDatedWhereTheyAreMade) {
    clock.set(momentIn("Europe/Berlin", "2026-12-31T22:30:00"));
    recordAnHour();
    click(u"PDF Export"_s);
    travelTo("Europe/Helsinki");
    EXPECT_THAT(savedDocument(), HasSubstr("Erstellt am 1. Januar 2027"));
    click(u"Rechnung"_s);
    EXPECT_THAT(spoken(u"Einträge zur Abrechnung"_s, 0), StartsWith("31.12.26, Entwurf"));
    click(u"Alle auswählen"_s);
    click(u"Rechnung erstellen"_s);
    EXPECT_EQ(savePanel.requests.back().suggestedName, "Rechnung_Standardprojekt_2027-01-01.pdf");
    travelTo("Europe/Berlin");
    const std::string invoice = savedDocument();
    EXPECT_THAT(invoice, HasSubstr("Rechnungsdatum: 31. Dezember 2026"));
    EXPECT_THAT(invoice, HasSubstr("Zahlbar bis: 14. Januar 2027"));
}

TEST_F(Travelling, theOpenInvoiceSheetFollows) {
    clock.set(momentIn("Europe/Berlin", "2026-12-31T22:30:00"));
    recordAnHour();
    click(u"Rechnung"_s);
    EXPECT_THAT(spoken(u"Einträge zur Abrechnung"_s, 0), StartsWith("31.12.26, Entwurf"));
    const auto& date = *QApplication::activeModalWidget()->findChild<QDateTimeEdit*>();
    EXPECT_EQ(date.text(), u"31.12.2026, 23:30"_s);
    travelTo("Asia/Tokyo");
    EXPECT_THAT(spoken(u"Einträge zur Abrechnung"_s, 0), StartsWith("01.01.27, Entwurf"));
    EXPECT_EQ(date.text(), u"01.01.2027, 07:30"_s);
    click(u"Eintrag hinzufügen"_s);
    EXPECT_THAT(spoken(u"Einträge zur Abrechnung"_s, 1), StartsWith("01.01.27"));
}

TEST_F(Travelling, theOpenArchiveFollows) {
    clock.set(momentIn("Europe/Berlin", "2026-12-31T22:30:00"));
    recordAnHour();
    click(u"Rechnung"_s);
    click(u"Alle auswählen"_s);
    click(u"Rechnung erstellen"_s);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    settle();
    click(u"Einstellungen"_s);
    click(u"Archiv anzeigen"_s);
    EXPECT_EQ(spoken(u"Archivierte Rechnungen"_s, 1), "Dezember 2026");
    travelTo("Asia/Tokyo");
    EXPECT_EQ(spoken(u"Archivierte Rechnungen"_s, 1), "Januar 2027");
}

} // namespace
} // namespace brisklog::test
