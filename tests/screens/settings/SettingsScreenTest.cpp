// The settings section as a person uses it, down to its file.

#include "settings/screens/SettingsScreen.h"

#include "screens/Pictures.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/screen/ScreenReader.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/sheets/Sheets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class SettingsScreenTest : public ScreenTest {
protected:
    /// The inside of the popover below its navigation bar.
    static constexpr QSize sectionSize{370, 592};

    SettingsScreenTest() { openOver(settings); }

    void openOver(AppSettings& shownSettings) {
        screen = std::make_unique<SettingsScreen>(
            shownSettings,
            SettingsActions{.makeArchiveSheet =
                                [this] {
                                    ++archivesMade;
                                    return std::make_unique<SheetWindow>(u"Archiv"_s, QSize(400, 600));
                                },
                            .openLink = [this](std::string_view a) { opened.emplace_back(a); }});
        screen->resize(sectionSize);
        showActive(*screen);
    }

    template <class T>
    [[nodiscard]] T& part(const QString& name) {
        T* const found = findNamed<T>(*screen, name);
        if (!found)
            std::abort();
        return *found;
    }

    [[nodiscard]] Picker& picker(const QString& name) { return part<Picker>(name); }

    [[nodiscard]] QStringList choices(const QString& name) {
        QStringList choices;
        for (int i = 0; i < picker(name).count(); ++i)
            choices.push_back(picker(name).itemText(i));
        return choices;
    }

    void choose(const QString& name, int steps) {
        for (int step = 0; step < steps; ++step)
            QTest::keyClick(&picker(name), Qt::Key_Down);
        settle();
    }

    void click(const QString& name) {
        part<QAbstractButton>(name).click();
        settle();
    }

    [[nodiscard]] std::string fileContent() const { return readFile(home.documents() / "app_settings.json"); }

    [[nodiscard]] bool fileSays(const std::string& value) const {
        return fileContent().find('"' + value + '"') != std::string::npos;
    }

    /// The names of all tab stops, in order.
    [[nodiscard]] QStringList tabPath() {
        QStringList names;
        part<QAbstractButton>(u"Archiv anzeigen"_s).setFocus();
        const QWidget* const start = screen->focusWidget();
        do {
            names.push_back(accessibleNameOf(*screen->focusWidget()));
            QTest::keyClick(screen->focusWidget(), Qt::Key_Tab);
        } while (screen->focusWidget() != start && names.size() < 50);
        return names;
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
    AppSettings settings{{files, defaults, log}};
    int archivesMade = 0;
    std::vector<std::string> opened;
    std::unique_ptr<SettingsScreen> screen;
};

TEST_F(SettingsScreenTest, hasItsSectionsInOrder) {
    QStringList titles;
    for (const auto* label : screen->findChildren<QLabel*>())
        if (dynamic_cast<const SectionHeader*>(label))
            titles.push_back(label->text());
    EXPECT_EQ(titles, (QStringList{u"Archiv"_s, u"Erscheinung"_s, u"Zeit Einstellungen"_s,
                                   u"Rundungsregeln für Rechnungen"_s}));
}

TEST_F(SettingsScreenTest, theCreditLineStandsCloseOverItsLinks) {
    const auto& line = part<QLabel>(u"Brisklog – Zeiterfassung und Rechnungen"_s);
    EXPECT_NEAR(line.mapTo(screen.get(), line.rect().center()).y(), 550, 1);
}

TEST_F(SettingsScreenTest, saysWhatItsControlsAreFor) {
    QStringList texts;
    for (const auto* label : screen->findChildren<QLabel*>())
        texts.push_back(label->text());
    for (const QString& text :
         {u"Archiv anzeigen"_s,
          u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s, u"Farbschema"_s,
          u"Zeiteinträge runden auf"_s, u"Zeitrundung"_s, u"Rechnungsrundung"_s,
          u"Brisklog – Zeiterfassung und Rechnungen"_s})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
}

TEST_F(SettingsScreenTest, offersEveryOptionInItsOrder) {
    EXPECT_EQ(choices(u"Farbschema"_s), (QStringList{u"Hell"_s, u"Dunkel"_s}));
    EXPECT_EQ(choices(u"Zeitrundung"_s),
              (QStringList{u"Keine Rundung"_s, u"5 Minuten"_s, u"10 Minuten"_s, u"15 Minuten"_s}));
    EXPECT_EQ(choices(u"Rechnungsrundung"_s), (QStringList{u"Exakte Zeiten"_s, u"Aufrunden"_s, u"Abrunden"_s,
                                                           u"Auf nächste Einheit runden"_s}));
}

TEST_F(SettingsScreenTest, hasNoControlForWhatHappensAtTheStart) {
    QStringList pressable;
    for (const auto* button : screen->findChildren<QAbstractButton*>())
        pressable.push_back(accessibleNameOf(*button));
    EXPECT_EQ(pressable, (QStringList{u"Archiv anzeigen"_s, u"Website"_s, u"Mail"_s}));
    EXPECT_EQ(screen->findChildren<QComboBox*>().size(), 3);
}

TEST_F(SettingsScreenTest, linksAreLinksForTheScreenReader) {
    for (const QString& name : {u"Website"_s, u"Mail"_s}) {
        auto& link = ScreenReader::of(part<QAbstractButton>(name));
        EXPECT_EQ(link.role(), QAccessible::Link);
        ScreenReader::act(link, QAccessibleActionInterface::pressAction());
    }
    EXPECT_EQ(opened,
              (std::vector<std::string>{"https://brisklog.example", "mailto:kontakt@brisklog.example"}));
}

TEST_F(SettingsScreenTest, openingItWritesNothing) {
    EXPECT_TRUE(files.written.empty());
    EXPECT_EQ(picker(u"Farbschema"_s).currentText(), u"Hell"_s);
    EXPECT_EQ(picker(u"Zeitrundung"_s).currentText(), u"Keine Rundung"_s);
    EXPECT_EQ(picker(u"Rechnungsrundung"_s).currentText(), u"Exakte Zeiten"_s);
}

TEST_F(SettingsScreenTest, choosingDarkIsInTheFileAtOnce) {
    choose(u"Farbschema"_s, 1);
    EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::dark);
    EXPECT_EQ(files.written, std::vector<std::string>{"app_settings.json"});
    EXPECT_TRUE(fileSays("Dunkel"));
}

TEST_F(SettingsScreenTest, everyPickerSetsItsOwnOption) {
    choose(u"Zeitrundung"_s, 3);
    EXPECT_EQ(settings.timeRounding.get(), TimeRoundingOption::fifteenMinutes);
    EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::none);
    choose(u"Rechnungsrundung"_s, 3);
    EXPECT_EQ(settings.invoiceRounding.get(), InvoiceRoundingOption::roundNearest);
    EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::light);
    EXPECT_TRUE(fileSays("15 Minuten"));
    EXPECT_TRUE(fileSays("Auf nächste Einheit runden"));
}

TEST_F(SettingsScreenTest, theMenuChoosesAsTheArrowsDo) {
    QTest::keyClick(&picker(u"Farbschema"_s), Qt::Key_Return);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    auto* const rows = menu->findChild<QListView*>();
    QTest::keyClick(rows, Qt::Key_Down);
    QTest::keyClick(rows, Qt::Key_Return);
    settle();
    EXPECT_EQ(settings.colorScheme.get(), ColorSchemeOption::dark);
    EXPECT_TRUE(fileSays("Dunkel"));
}

TEST_F(SettingsScreenTest, openedAgainItShowsWhatTheFileHolds) {
    choose(u"Farbschema"_s, 1);
    choose(u"Zeitrundung"_s, 2);
    choose(u"Rechnungsrundung"_s, 2);
    AppSettings loaded({files, defaults, log});
    openOver(loaded);
    EXPECT_EQ(picker(u"Farbschema"_s).currentText(), u"Dunkel"_s);
    EXPECT_EQ(picker(u"Zeitrundung"_s).currentText(), u"10 Minuten"_s);
    EXPECT_EQ(picker(u"Rechnungsrundung"_s).currentText(), u"Abrunden"_s);
    screen.reset();
}

TEST_F(SettingsScreenTest, followsAChangeMadeElsewhere) {
    settings.invoiceRounding = InvoiceRoundingOption::roundUp;
    settle();
    EXPECT_EQ(picker(u"Rechnungsrundung"_s).currentText(), u"Aufrunden"_s);
}

TEST_F(SettingsScreenTest, aWriteThatFailsIsPrintedAndTheChoiceStays) {
    files.writesFail = true;
    choose(u"Farbschema"_s, 1);
    EXPECT_EQ(picker(u"Farbschema"_s).currentText(), u"Dunkel"_s);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Error saving settings: ")) << log.lines[0];
}

TEST_F(SettingsScreenTest, theArchiveOpensAsASheetAsOftenAsItIsAskedFor) {
    for (const int times : {1, 2}) {
        click(u"Archiv anzeigen"_s);
        EXPECT_EQ(archivesMade, times);
        QWidget* const sheet = QApplication::activeModalWidget();
        ASSERT_NE(sheet, nullptr);
        QTest::keyClick(sheet, Qt::Key_Escape);
        settle();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_TRUE(screen->isVisible());
    }
}

TEST_F(SettingsScreenTest, returnOpensTheArchiveFromTheKeyboard) {
    QTest::keyClick(&part<QAbstractButton>(u"Archiv anzeigen"_s), Qt::Key_Return);
    settle();
    EXPECT_EQ(archivesMade, 1);
}

TEST_F(SettingsScreenTest, itsLinksLeadToThePageAndToANewMail) {
    click(u"Website"_s);
    click(u"Mail"_s);
    EXPECT_EQ(opened,
              (std::vector<std::string>{"https://brisklog.example", "mailto:kontakt@brisklog.example"}));
}

TEST_F(SettingsScreenTest, tabGoesFromTopToBottom) {
    EXPECT_EQ(tabPath(), (QStringList{u"Archiv anzeigen"_s, u"Farbschema"_s, u"Zeitrundung"_s,
                                      u"Rechnungsrundung"_s, u"Website"_s, u"Mail"_s}));
}

TEST_F(SettingsScreenTest, fitsThePopoverAndScrollsWhereItDoesNot) {
    const auto* const area = screen->findChild<QScrollArea*>();
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
    screen->resize(370, 300);
    settle();
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
}

TEST_F(SettingsScreenTest, noChoiceIsShortened) {
    settings.invoiceRounding = InvoiceRoundingOption::roundNearest;
    settle();
    EXPECT_GE(picker(u"Rechnungsrundung"_s).width(), picker(u"Rechnungsrundung"_s).sizeHint().width());
    EXPECT_GE(picker(u"Zeitrundung"_s).width(), picker(u"Zeitrundung"_s).sizeHint().width());
}

TEST_F(SettingsScreenTest, pictures) {
    settings.timeRounding = TimeRoundingOption::fifteenMinutes;
    settings.invoiceRounding = InvoiceRoundingOption::roundNearest;
    settle();
    takePictures(*screen, u"einstellungen"_s, QPoint(4, 500));
    part<QAbstractButton>(u"Archiv anzeigen"_s).setFocus(Qt::TabFocusReason);
    takePictures(*screen, u"einstellungen-tastatur"_s, QPoint(4, 500));
}

} // namespace
} // namespace brisklog::test
