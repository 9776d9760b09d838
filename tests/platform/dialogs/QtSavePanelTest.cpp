#include "platform/dialogs/QtSavePanel.h"

#include "platform/DesktopFixture.h"
#include "platform/files/PosixFiles.h"
#include "support/screen/Windows.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

using ::testing::HasSubstr;
using ::testing::Not;

/// A save panel over a window, with a record of how it ended.
struct Panel {
    explicit Panel(const QDBusConnection& bus)
        : savePanel(files,
                    {.parentWindow = [this] { return window.get(); }, .holdOpen = [this] { return hold; }},
                    bus) {
        window->show();
    }

    void present(const std::string& name) {
        savePanel.present({.title = "Rechnung als PDF exportieren", .suggestedName = name},
                          [this](const auto& file) {
                              ++completions;
                              chosen = file;
                              wasHeldAtCompletion = isHeldOpen();
                          });
        EXPECT_EQ(completions, 0) << "the completion comes asynchronously";
    }

    [[nodiscard]] bool isHeldOpen() const { return hold.use_count() > 1; }

    /// Whether it ends exactly once and releases what it held open.
    [[nodiscard]] bool endsOnce() const {
        return waitUntil([this] { return completions > 0 && !isHeldOpen(); }) && completions == 1;
    }

    PosixFiles files;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::shared_ptr<int> hold = std::make_shared<int>();
    QtSavePanel savePanel;
    int completions = 0;
    std::optional<fs::path> chosen;
    bool wasHeldAtCompletion = false;
};

QFileDialog* waitForDialog() {
    EXPECT_TRUE(waitUntil([] { return visibleWindow<QFileDialog>() != nullptr; }));
    return visibleWindow<QFileDialog>();
}

QString nameIn(const QFileDialog& dialog) { return dialog.findChild<QLineEdit*>()->text(); }

QPushButton* buttonOf(const QWidget& window, const QString& text) {
    for (auto* const button : window.findChildren<QPushButton*>())
        if (QString(button->text()).remove(u'&') == text)
            return button;
    return nullptr;
}

class SaveDialog : public Desktop {
public:
    SaveDialog() : panel(QDBusConnection(u"none"_s)) { fs::create_directories(home.documents()); }

    Panel panel;
};

TEST_F(SaveDialog, itLooksAsAsked) {
    panel.present("Rechnung_Web/Shop_2024-03-07.pdf");
    auto* const dialog = waitForDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), u"Rechnung als PDF exportieren"_s);
    EXPECT_EQ(nameIn(*dialog), u"Rechnung_Web-Shop_2024-03-07.pdf"_s);
    EXPECT_EQ(dialog->directory().path().toStdString(), home.documents());
    EXPECT_EQ(dialog->nameFilters(), QStringList{u"PDF-Dokumente (*.pdf)"_s});
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    EXPECT_EQ(dialog->parentWidget(), panel.window.get());
    EXPECT_NE(buttonOf(*dialog, u"Speichern"_s), nullptr);
    EXPECT_NE(buttonOf(*dialog, u"Abbrechen"_s), nullptr);
    EXPECT_TRUE(panel.isHeldOpen());
    if (qEnvironmentVariableIsSet("BRISKLOG_PICTURES"))
        dialog->grab().save(qEnvironmentVariable("BRISKLOG_PICTURES") + u"/save-dialog.png"_s);
}

TEST_F(SaveDialog, aTitleOfSeveralLinesStandsOnOne) {
    panel.savePanel.present(
        {.title = std::string("Web\n\0Shop als PDF exportieren", 29), .suggestedName = "x"},
        [](const auto&) {});
    EXPECT_EQ(waitForDialog()->windowTitle(), u"Web  Shop als PDF exportieren"_s);
}

TEST_F(SaveDialog, savingGivesTheFile) {
    panel.present("Rechnung.pdf");
    buttonOf(*waitForDialog(), u"Speichern"_s)->click();
    EXPECT_TRUE(panel.endsOnce());
    EXPECT_EQ(panel.chosen, home.documents() / "Rechnung.pdf");
    EXPECT_TRUE(panel.wasHeldAtCompletion);
    EXPECT_EQ(visibleWindow<QFileDialog>(), nullptr);
}

TEST_F(SaveDialog, cancellingGivesNone) {
    panel.present("Rechnung.pdf");
    buttonOf(*waitForDialog(), u"Abbrechen"_s)->click();
    EXPECT_TRUE(panel.endsOnce());
    EXPECT_FALSE(panel.chosen);
}

TEST_F(SaveDialog, aTypedNameGetsTheEnding) {
    panel.present("Rechnung.pdf");
    auto* const dialog = waitForDialog();
    dialog->findChild<QLineEdit*>()->setText(u"Größe"_s);
    buttonOf(*dialog, u"Speichern"_s)->click();
    EXPECT_TRUE(panel.endsOnce());
    EXPECT_EQ(panel.chosen, home.documents() / "Größe.pdf");
}

TEST_F(SaveDialog, quotationMarksDoNotTearTheNameApart) {
    panel.present("Rechnung_Kunde \"Alpha\" und \"Beta\".pdf");
    buttonOf(*waitForDialog(), u"Speichern"_s)->click();
    EXPECT_TRUE(panel.endsOnce());
    EXPECT_EQ(panel.chosen, home.documents() / "Rechnung_Kunde 'Alpha' und 'Beta'.pdf");
}

TEST_F(SaveDialog, anExistingFileIsOnlyReplacedWhenTheUserSaysSo) {
    writeFile(home.documents() / "Rechnung.pdf", "old");
    panel.present("Rechnung");
    auto* const dialog = waitForDialog();
    // The question runs a nested event loop inside the click.
    QTimer::singleShot(0, dialog, [] {
        ASSERT_TRUE(waitUntil([] { return visibleWindow<QMessageBox>() != nullptr; }));
        visibleWindow<QMessageBox>()->button(QMessageBox::No)->click();
    });
    buttonOf(*dialog, u"Speichern"_s)->click();
    EXPECT_EQ(panel.completions, 0);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(SaveDialog, whenItsWindowGoesItEndsWithoutAFile) {
    panel.present("Rechnung.pdf");
    ASSERT_NE(waitForDialog(), nullptr);
    panel.window.reset();
    EXPECT_TRUE(panel.endsOnce());
    EXPECT_FALSE(panel.chosen);
}

TEST_F(SaveDialog, withoutAWindowItIsFree) {
    panel.window.reset();
    panel.present("Rechnung.pdf");
    auto* const dialog = waitForDialog();
    EXPECT_EQ(dialog->parentWidget(), nullptr);
    dialog->reject();
    EXPECT_TRUE(panel.endsOnce());
}

TEST_F(SaveDialog, withoutADocumentsFolderItOpensInTheHome) {
    fs::remove_all(home.documents());
    panel.present("Rechnung.pdf");
    EXPECT_EQ(waitForDialog()->directory().path().toStdString(), home.path());
}

class PortalSavePanel : public DesktopWithBus {
public:
    PortalSavePanel() { fs::create_directories(home.documents()); }

    /// Made at the first call, when the bus is running.
    Panel& panel() {
        if (!m_panel)
            m_panel = std::make_unique<Panel>(bus());
        return *m_panel;
    }

    void TearDown() override {
        m_panel.reset();
        DesktopWithBus::TearDown();
    }

    [[nodiscard]] QString choosing(const std::string& name) const {
        return u"choose="_s + QString::fromStdString("file://" + (home.documents() / name).string());
    }

    [[nodiscard]] bool panelIsUp() const {
        return waitUntil([this] { return calls().find("SaveFile") != std::string::npos; });
    }

    /// Expects the toolkit's dialog instead of the portal's, and cancels it.
    void expectDialogInstead() {
        auto* const dialog = waitForDialog();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(nameIn(*dialog), u"Rechnung.pdf"_s);
        EXPECT_TRUE(panel().isHeldOpen());
        dialog->reject();
        EXPECT_TRUE(panel().endsOnce());
    }

    std::unique_ptr<Panel> m_panel;
};

TEST_F(PortalSavePanel, thePortalIsAskedAsItWantsToBe) {
    startPortal({choosing("Rechnung%202.pdf")});
    panel().present("Rechnung_Web/Shop.pdf");
    EXPECT_TRUE(panel().isHeldOpen());
    EXPECT_TRUE(panel().endsOnce());
    EXPECT_EQ(panel().chosen, home.documents() / "Rechnung 2.pdf");
    EXPECT_TRUE(panel().wasHeldAtCompletion);
    EXPECT_EQ(visibleWindow<QFileDialog>(), nullptr);
    const std::string asked = calls();
    EXPECT_THAT(asked, HasSubstr("SaveFile parent= title=Rechnung als PDF exportieren\n"));
    EXPECT_THAT(asked, HasSubstr("  accept_label=Speichern\n"));
    EXPECT_THAT(asked, HasSubstr("  current_folder=b'" + home.documents().string() + "\\x00'\n"));
    EXPECT_THAT(asked, HasSubstr("  current_name=Rechnung_Web-Shop.pdf\n"));
    EXPECT_THAT(asked, HasSubstr("  filters=[['PDF-Dokumente', [[0, '*.pdf'], [1, 'application/pdf']]]]\n"));
    EXPECT_THAT(asked,
                HasSubstr("  current_filter=['PDF-Dokumente', [[0, '*.pdf'], [1, 'application/pdf']]]\n"));
    EXPECT_THAT(asked, HasSubstr("  modal=True\n"));
    EXPECT_THAT(asked, Not(HasSubstr("Close")));
}

TEST_F(PortalSavePanel, aChosenNameGetsTheEndingButReplacesNothingUnasked) {
    writeFile(home.documents() / "Rechnung.pdf", "another document");
    startPortal({choosing("Rechnung")});
    panel().present("Rechnung.pdf");
    EXPECT_TRUE(panel().endsOnce());
    EXPECT_EQ(panel().chosen, home.documents() / "Rechnung 2.pdf");
}

TEST_F(PortalSavePanel, cancellingAndClosingGiveNone) {
    for (const char* const end : {"1", "2"}) {
        startPortal({u"end="_s + QString::fromUtf8(end)});
        m_panel.reset();
        panel().present("Rechnung.pdf");
        EXPECT_TRUE(panel().endsOnce());
        EXPECT_FALSE(panel().chosen);
        EXPECT_EQ(visibleWindow<QFileDialog>(), nullptr);
        killPortal();
    }
}

TEST_F(PortalSavePanel, anOlderPortalIsUnderstoodToo) {
    startPortal({choosing("Rechnung.pdf"), u"old-handle"_s});
    panel().present("Rechnung.pdf");
    EXPECT_TRUE(panel().endsOnce());
    EXPECT_EQ(panel().chosen, home.documents() / "Rechnung.pdf");
}

TEST_F(PortalSavePanel, withoutAPortalTheDialogComes) {
    panel().present("Rechnung.pdf");
    expectDialogInstead();
}

TEST_F(PortalSavePanel, withAPortalWithoutFileChooserTheDialogComes) {
    startPortal({u"no-chooser"_s});
    panel().present("Rechnung.pdf");
    expectDialogInstead();
}

TEST_F(PortalSavePanel, withASilentPortalTheDialogComes) {
    startPortal({u"silent"_s});
    panel().present("Rechnung.pdf");
    expectDialogInstead();
}

TEST_F(PortalSavePanel, whenThePortalVanishesTheDialogComes) {
    startPortal({});
    panel().present("Rechnung.pdf");
    ASSERT_TRUE(panelIsUp());
    killPortal();
    expectDialogInstead();
}

TEST_F(PortalSavePanel, whenTheBusVanishesTheDialogComes) {
    startPortal({});
    panel().present("Rechnung.pdf");
    ASSERT_TRUE(panelIsUp());
    killBus();
    expectDialogInstead();
}

TEST_F(PortalSavePanel, aChoiceThatIsNoFileHereBringsTheDialog) {
    startPortal({u"choose=sftp://example/Rechnung.pdf"_s});
    panel().present("Rechnung.pdf");
    expectDialogInstead();
}

TEST_F(PortalSavePanel, whenTheProgramEndsThePanelIsWithdrawn) {
    startPortal({});
    panel().present("Rechnung.pdf");
    ASSERT_TRUE(panelIsUp());
    m_panel.reset();
    EXPECT_TRUE(waitUntil([this] { return calls().find("Close") != std::string::npos; }));
}

} // namespace
} // namespace brisklog::test
