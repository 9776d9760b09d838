#include "app/WholeProgram.h"

#include "foundation/Text.h"
#include "invoice/InvoiceGenerator.h"
#include "invoice/InvoiceView.h"
#include "platform/dialogs/QtSavePanel.h"
#include "profile/UserProfile.h"
#include "support/WritableStore.h"
#include "support/screen/Windows.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <cstring>
#include <set>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

/// Both exports of a project with one entry, through the toolkit's save panel over a window.
class Exports {
public:
    explicit Exports(const std::string& projectName) {
        fs::create_directories(home.documents());
        TimeEntry entry;
        entry.taskName = "Entwurf";
        entry.startTime = clock.now();
        entry.endTime = clock.now().addingSeconds(3600);
        writable(store.projects) = {
            {.id = Uuid::generate(), .name = projectName, .hourlyRate = 80.0, .entries = {entry}}};
        window.show();
    }

    void exportReport() { brisklog::exportReport(store, store.projects->front(), facilities()); }

    void exportInvoice() {
        invoice = std::make_unique<InvoiceView>(store, 0, facilities(), notifications);
        invoice->exportInvoicePDF();
    }

    /// Every file in the home except the one in which the toolkit's dialog remembers its size.
    [[nodiscard]] std::set<fs::path> allFiles() const {
        std::set<fs::path> found;
        for (const auto& each : fs::recursive_directory_iterator(home.path()))
            if (each.is_regular_file() && each.path().filename() != "QtProject.conf")
                found.insert(each.path());
        return found;
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    CairoPdfFacility pdf;
    NotificationCenter notifications;
    UserProfile profile{{files, userDefaults, log}};
    TimeTrackingStore store{{files, userDefaults, clock, runLoop, log}};
    QWidget window;
    QtSavePanel savePanel{files,
                          {.parentWindow = [this] { return &window; }, .holdOpen = [] { return nullptr; }},
                          QDBusConnection(u"none"_s)};
    std::unique_ptr<InvoiceView> invoice;

private:
    [[nodiscard]] DocumentFacilities facilities() {
        return {.pdf = pdf,
                .clock = clock,
                .savePanel = savePanel,
                .files = files,
                .log = log,
                .profile = [this]() -> const UserProfile& { return profile; }};
    }
};

class ExportPanels : public ScreenTest {
protected:
    static QFileDialog* panel() { return visibleWindow<QFileDialog>(); }

    static void press(QFileDialog& dialog, const QString& caption) {
        for (QPushButton* const button : dialog.findChildren<QPushButton*>())
            if (QString(button->text()).remove(u'&') == caption)
                QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }

    /// Saves under the suggested name and expects the document in the documents folder and no other file
    /// written.
    static void saveAsSuggested(const Exports& exports, const QString& title) {
        QFileDialog* const dialog = panel();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), title);
        EXPECT_EQ(dialog->parentWidget(), &exports.window);
        const std::string suggested = dialog->findChild<QLineEdit*>()->text().toStdString();
        EXPECT_TRUE(suggested.size() > std::strlen(".pdf") && suggested.ends_with(".pdf")) << suggested;
        const auto before = exports.allFiles();
        press(*dialog, u"Speichern"_s);
        EXPECT_EQ(panel(), nullptr);
        std::vector<fs::path> written;
        std::ranges::set_difference(exports.allFiles(), before, std::back_inserter(written));
        ASSERT_EQ(written, std::vector<fs::path>{exports.home.documents() / suggested});
        EXPECT_TRUE(readFile(written[0]).starts_with("%PDF-"));
    }
};

/// Names that projects may have but files may not, and names with a meaning to shells or dialogs.
std::vector<std::string> troublesomeNames() {
    using namespace std::string_literals;
    std::string umlauts;
    for (int i = 0; i < 300; ++i)
        umlauts += "ü";
    return {"Web/Shop"s,
            "../../draußen"s,
            "/etc/passwd"s,
            "~/daheim"s,
            "~root"s,
            ".versteckt"s,
            ".."s,
            ""s,
            "a\nb\tc"s,
            "a\0b"s,
            "Gr\xFC\xDF"
            "e"s,
            "\"eins\" \"zwei\""s,
            "C:\\Windows\\"s,
            "*?[x]{1,2}"s,
            "$HOME"s,
            "%2F..%2Fx"s,
            "file:///etc/x"s,
            "\u202Efdp.exe"s,
            "Kunde & Söhne | <3"s,
            "日本語 😀"s,
            "Web.pdf"s,
            "a;b, c"s,
            umlauts,
            " führend"s,
            "-rf"s,
            "Name (*.txt)"s};
}

TEST_F(ExportPanels, theReportGoesToTheDocumentsFolderWhateverTheProjectsName) {
    for (const std::string& name : troublesomeNames()) {
        SCOPED_TRACE(name);
        Exports exports(name);
        exports.exportReport();
        settle();
        const QString shownName = QString::fromStdString(text::onOneLine(name));
        saveAsSuggested(exports, shownName + u" als PDF exportieren"_s);
    }
}

TEST_F(ExportPanels, theInvoiceGoesToTheDocumentsFolderWhateverTheProjectsName) {
    for (const std::string& name : troublesomeNames()) {
        SCOPED_TRACE(name);
        Exports exports(name);
        exports.exportInvoice();
        settle();
        saveAsSuggested(exports, u"Rechnung als PDF exportieren"_s);
    }
}

TEST_F(ExportPanels, anOrdinaryProjectIsSuggestedUnderItsName) {
    Exports exports("Website-Relaunch");
    exports.exportReport();
    settle();
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->findChild<QLineEdit*>()->text(), u"Website-Relaunch.pdf"_s);
    saveAsSuggested(exports, u"Website-Relaunch als PDF exportieren"_s);
}

TEST_F(ExportPanels, cancellingTheReportWritesNothing) {
    Exports exports("Website");
    exports.exportReport();
    settle();
    ASSERT_NE(panel(), nullptr);
    const auto before = exports.allFiles();
    const auto lines = exports.log.lines;
    press(*panel(), u"Abbrechen"_s);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(exports.allFiles(), before);
    EXPECT_EQ(exports.log.lines, lines);
}

class ReportButton : public WholeProgram {};

TEST_F(ReportButton, exportsTheReportOfTheShownProject) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    clock.advance(3600);
    click(u"Stoppen"_s);
    click(u"PDF Export"_s);
    ASSERT_EQ(savePanel.requests.size(), 1U);
    EXPECT_EQ(savePanel.requests[0].title, "Standardprojekt als PDF exportieren");
    EXPECT_EQ(savePanel.requests[0].suggestedName, "Standardprojekt.pdf");
    savePanel.answer(home.path() / "Bericht.pdf");
    EXPECT_TRUE(readFile(home.path() / "Bericht.pdf").starts_with("%PDF-"));
}

TEST_F(ReportButton, canBeReachedAndPressedWithTheKeyboardAlone) {
    statusItem->click();
    settle();
    QWidget* const reportButton = button(u"PDF Export"_s);
    ASSERT_NE(reportButton, nullptr);
    for (int i = 0; i < 30 && QApplication::focusWidget() != reportButton; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), reportButton);
    QTest::keyClick(reportButton, Qt::Key_Space);
    EXPECT_TRUE(savePanel.isShown());
}

} // namespace
} // namespace brisklog::test
