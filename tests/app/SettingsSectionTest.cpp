// The settings in the whole program: changes show at once, and the archive opens from here.

#include "app/WholeProgram.h"
#include "ui/controls/Picker.h"
#include "ui/look/Palette.h"
#include "ui/sheets/SheetWindow.h"

#include <QAbstractItemView>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class SettingsSection : public WholeProgram {
protected:
    void open() {
        statusItem->click();
        settle();
        click(u"Einstellungen"_s);
    }

    void choose(const QString& name, Qt::Key step) {
        QTest::keyClick(findNamed<Picker>(*app.popover(), name), step);
        turn();
    }

    [[nodiscard]] QColor groundOf(QWidget& window) { return window.grab().toImage().pixelColor(4, 590); }

    [[nodiscard]] static SheetWindow* sheet() {
        return dynamic_cast<SheetWindow*>(QApplication::activeModalWidget());
    }

    [[nodiscard]] std::string settingsFile() const {
        return readFile(home.documents() / "app_settings.json");
    }
};

TEST_F(SettingsSection, choosingDarkDrawsThePopoverDarkAtOnceAndIsInTheFile) {
    open();
    EXPECT_EQ(groundOf(*app.popover()), Palette::of(ColorScheme::light).ground);
    choose(u"Farbschema"_s, Qt::Key_Down);
    EXPECT_EQ(groundOf(*app.popover()), Palette::of(ColorScheme::dark).ground);
    EXPECT_NE(settingsFile().find("\"Dunkel\""), std::string::npos);
    choose(u"Farbschema"_s, Qt::Key_Up);
    EXPECT_EQ(groundOf(*app.popover()), Palette::of(ColorScheme::light).ground);
    EXPECT_NE(settingsFile().find("\"Hell\""), std::string::npos);
}

TEST_F(SettingsSection, anOpenSheetTurnsDarkTogetherWithThePopover) {
    open();
    click(u"Archiv anzeigen"_s);
    ASSERT_NE(sheet(), nullptr);
    app.settings().colorScheme = ColorSchemeOption::dark;
    turn();
    EXPECT_EQ(groundOf(*sheet()), Palette::of(ColorScheme::dark).ground);
    EXPECT_EQ(groundOf(*app.popover()), Palette::of(ColorScheme::dark).ground);
}

TEST_F(SettingsSection, theArchiveHoldsThePopoverOpenAndGivesTheKeyboardBack) {
    open();
    click(u"Archiv anzeigen"_s);
    EXPECT_EQ(sheet()->windowTitle(), u"Archivierte Rechnungen"_s);
    turnElsewhere();
    EXPECT_TRUE(app.popover()->isShown());
    QApplication::setActiveWindow(sheet());
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_TRUE(app.popover()->isShown());
    EXPECT_EQ(QApplication::activeWindow(), app.popover());
    QTest::keyClick(app.popover(), Qt::Key_Escape);
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(SettingsSection, anInvoiceJustCreatedIsInTheArchive) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    clock.advance(3600);
    click(u"Stoppen"_s);
    click(u"Rechnung"_s);
    findNamed<QLineEdit>(*sheet(), u"Rechnungsnummer:"_s)->insert(u"2026-041"_s);
    click(u"Alle auswählen"_s);
    click(u"Rechnung erstellen"_s);
    savePanel.answer(std::nullopt);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    click(u"Einstellungen"_s);
    click(u"Archiv anzeigen"_s);
    const auto* const rows = sheet()->findChild<QAbstractItemView*>();
    ASSERT_EQ(rows->model()->rowCount(), 3);
    EXPECT_EQ(rows->model()->index(2, 0).data(Qt::AccessibleTextRole).toString(), u"2026-041, Unbekannt"_s);
}

TEST_F(SettingsSection, theLinksLeaveTheProgram) {
    open();
    click(u"Website"_s);
    click(u"Mail"_s);
    EXPECT_EQ(openedLinks,
              (std::vector<std::string>{"https://brisklog.example", "mailto:kontakt@brisklog.example"}));
}

} // namespace
} // namespace brisklog::test
