#include "app/shell/BrisklogApp.h"

#include "app/shell/PopoverWindow.h"
#include "foundation/Text.h"
#include "platform/linux/CairoPdfFacility.h"
#include "platform/linux/PosixFiles.h"
#include "platform/qt/QtImages.h"
#include "platform/qt/QtSavePanel.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingLog.h"
#include "support/RecordingLogoPicker.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cstring>
#include <set>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

class NoStatusItem final : public StatusItem {
public:
    void setDescription(const std::string& /*description*/) override {}

    void setAction(std::function<void()> /*action*/) override {}

    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override { return std::nullopt; }
};

class NoAppearance final : public SystemAppearance {
public:
    void ask(Answer /*answered*/) override {}
};

/// The program over a home with one project, with the toolkit's save panel.
class Program {
public:
    explicit Program(const std::string& projectName) {
        fs::create_directories(home.documents());
        TimeEntry entry;
        entry.id = Uuid::generate();
        entry.taskName = "Entwurf";
        entry.startTime = clock.now();
        entry.endTime = clock.now().addingSeconds(3600);
        TimeTrackingStore store({files, userDefaults, clock, runLoop, log});
        store.projects = {
            {.id = Uuid::generate(), .name = projectName, .hourlyRate = 80.0, .entries = {entry}}};
        store.saveProjects();
        app.launch();
        app.open();
    }

    /// The sheet that is open, else the popover.
    [[nodiscard]] QWidget* windowInFront() const {
        QWidget* const sheet = QApplication::activeModalWidget();
        return sheet != nullptr ? sheet : app.popover();
    }

    /// Every file below the home but the one in which the toolkit's dialog remembers its size.
    [[nodiscard]] std::set<fs::path> allFiles() const {
        std::set<fs::path> found;
        for (const auto& each : fs::recursive_directory_iterator(home.path()))
            if (each.is_regular_file() && each.path().filename() != "QtProject.conf")
                found.insert(each.path());
        return found;
    }

    TemporaryHome home;
    PosixFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    CairoPdfFacility pdf;
    QtImages images;
    RecordingLogoPicker logoPicker;
    NoAppearance appearance;
    QtSavePanel savePanel{files,
                          {.parentWindow = [this] { return windowInFront(); },
                           .holdOpen = [this] { return app.popover()->holdOpen(); }},
                          QDBusConnection(u"none"_s)};
    BrisklogApp app{{.files = files,
                     .userDefaults = userDefaults,
                     .clock = clock,
                     .runLoop = runLoop,
                     .log = log,
                     .savePanel = savePanel,
                     .pdf = pdf,
                     .images = images,
                     .logoPicker = logoPicker,
                     .systemAppearance = appearance,
                     .makeStatusItem = [] { return std::make_unique<NoStatusItem>(); },
                     .hasStatusItem = [] { return false; },
                     .x11 = nullptr,
                     .terminate = [] {}}};
};

class ExportPanels : public ScreenTest {
protected:
    static QFileDialog* panel() {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible())
                return dialog;
        return nullptr;
    }

    /// The button with that caption or name that is shown in the window, else in any window.
    static QAbstractButton* button(const QString& name, const QWidget* window = nullptr) {
        for (QWidget* const widget : QApplication::allWidgets()) {
            auto* const match = qobject_cast<QAbstractButton*>(widget);
            if (match == nullptr || !match->isVisible() || (window != nullptr && match->window() != window))
                continue;
            if (accessibleNameOf(*match) == name)
                return match;
        }
        return nullptr;
    }

    static void click(const QString& name, const QWidget* window = nullptr) {
        auto* const found = button(name, window);
        ASSERT_NE(found, nullptr) << name.toStdString();
        ASSERT_TRUE(found->isEnabled()) << name.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
        settle();
    }

    /// Saves under the suggested name and expects that the document lies in the documents folder, and that
    /// no file was written anywhere else.
    static void saveAsSuggested(const Program& program, const QString& title) {
        auto* const dialog = panel();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), title);
        const std::string suggested = dialog->findChild<QLineEdit*>()->text().toStdString();
        EXPECT_TRUE(suggested.size() > std::strlen(".pdf") && suggested.ends_with(".pdf")) << suggested;
        const auto before = program.allFiles();
        click(u"Speichern"_s, dialog);
        EXPECT_EQ(panel(), nullptr);
        std::vector<fs::path> written;
        std::ranges::set_difference(program.allFiles(), before, std::back_inserter(written));
        ASSERT_EQ(written, std::vector<fs::path>{program.home.documents() / suggested});
        EXPECT_TRUE(readFile(written[0]).starts_with("%PDF-"));
    }
};

/// Names a project may have and a file may not, and names that mean something to shells and dialogs.
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
            "a\nb\tc"s,
            "a\0b"s,
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
        const Program program(name);
        settle();
        click(u"PDF Export"_s);
        const QString title = QString::fromStdString(text::onOneLine(name)) + u" als PDF exportieren"_s;
        saveAsSuggested(program, title);
    }
}

TEST_F(ExportPanels, theInvoiceGoesToTheDocumentsFolderWhateverTheProjectsName) {
    for (const std::string& name : troublesomeNames()) {
        SCOPED_TRACE(name);
        const Program program(name);
        settle();
        click(u"Rechnung"_s);
        click(u"Alle auswählen"_s);
        click(u"Rechnung erstellen"_s);
        saveAsSuggested(program, u"Rechnung als PDF exportieren"_s);
    }
}

TEST_F(ExportPanels, anOrdinaryProjectIsSuggestedUnderItsName) {
    const Program program("Website-Relaunch");
    settle();
    click(u"PDF Export"_s);
    EXPECT_EQ(panel()->findChild<QLineEdit*>()->text(), u"Website-Relaunch.pdf"_s);
    saveAsSuggested(program, u"Website-Relaunch als PDF exportieren"_s);
    EXPECT_TRUE(program.app.popover()->isShown());
}

TEST_F(ExportPanels, cancellingTheReportWritesNothing) {
    const Program program("Website");
    settle();
    click(u"PDF Export"_s);
    const auto before = program.allFiles();
    const auto lines = program.log.lines;
    click(u"Abbrechen"_s, panel());
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(program.allFiles(), before);
    EXPECT_EQ(program.log.lines, lines);
}

TEST_F(ExportPanels, theReportIsExportedWithTheKeyboardAlone) {
    const Program program("Website");
    settle();
    QWidget* const exportButton = button(u"PDF Export"_s);
    ASSERT_NE(exportButton, nullptr);
    for (int i = 0; i < 30 && QApplication::focusWidget() != exportButton; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), exportButton);
    QTest::keyClick(exportButton, Qt::Key_Space);
    settle();
    ASSERT_NE(panel(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(fs::exists(program.home.documents() / "Website.pdf"));
}

} // namespace
} // namespace brisklog::test
