#include "overview/screens/DayDetailWindow.h"

#include "screens/Pictures.h"
#include "screens/autotrack/AutoTrackingBench.h"
#include "support/SamplePictures.h"
#include "ui/lists/RowList.h"
#include "ui/look/Palette.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class DayDetailWindowTest : public AutoTrackingBench {
protected:
    static std::string icon(const QColor& colour) {
        QImage image(32, 32, QImage::Format_ARGB32);
        image.fill(colour);
        return encoded(image, "PNG");
    }

    DayDetailWindow& choose(const QString& name) {
        QTest::mouseClick(&cell(name + u", mit Daten"_s), Qt::LeftButton);
        settle();
        return *dayWindows().back();
    }

    [[nodiscard]] static RowList& list(QWidget& window) { return *findFirst<RowList>(window); }

    /// The texts of a row as a screen reader says them, with ordinary blanks.
    [[nodiscard]] static QString spoken(QWidget& window, int row) {
        return list(window)
            .model()
            ->index(row, 0)
            .data(Qt::AccessibleTextRole)
            .toString()
            .replace(u'\u00A0', u' ');
    }

    [[nodiscard]] static QColor pixel(QWidget& window, int row, const QPoint& at) {
        auto& rows = list(window);
        const QRect area = rows.visualRect(rows.model()->index(row, 0));
        return picture(window).pixelColor(rows.viewport()->mapTo(&window, area.topLeft() + at));
    }
};

TEST_F(DayDetailWindowTest, isAWindowOfItsOwnWithTitleSizeAndSmallestSize) {
    openPanel();
    record(5, "Editor", 60);
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    EXPECT_TRUE(window.isWindow());
    EXPECT_EQ(window.parentWidget(), nullptr);
    EXPECT_EQ(window.windowTitle(), u"App-Nutzung: 15.11.2026"_s);
    EXPECT_EQ(window.size(), QSize(500, 600));
    EXPECT_EQ(window.minimumSize(), QSize(400, 300));
    const QPoint middle = window.screen()->availableGeometry().center();
    EXPECT_EQ(QRect(window.pos(), window.size()).center(), middle);
}

TEST_F(DayDetailWindowTest, listsTheLongestUseFirstUnderTheTotal) {
    openPanel();
    record(5, "LibreOffice Writer", 13887, icon(QColor(38, 110, 184)));
    record(5, "Schriftverwaltung", 304);
    record(5, "Firefox", 9245, icon(QColor(222, 100, 30)));
    record(5, "Kaputt", 900, "no picture at all");
    record(5, "Ein Programm mit einem so langen Namen, dass er neben der Dauer nie und nimmer Platz hat",
           600);
    for (int app = 0; app < 30; ++app)
        record(5, "Programm " + std::to_string(app), 10 + app, icon(QColor::fromHsv(app * 12, 200, 180)));
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    const QStringList labels = [&window] {
        QStringList texts;
        for (const auto* label : window.findChildren<QLabel*>())
            texts << QString(label->text()).replace(u'\u00A0', u' ');
        return texts;
    }();
    EXPECT_EQ(labels, (QStringList{u"Gesamtzeit: 7 h 7 min"_s, u"Anwendung"_s, u"Dauer"_s}));
    EXPECT_EQ(spoken(window, 0), u"LibreOffice Writer, 3 h 51 min 27 s"_s);
    EXPECT_EQ(spoken(window, 1), u"Firefox, 2 h 34 min 5 s"_s);
    EXPECT_EQ(spoken(window, 4), u"Schriftverwaltung, 0 h 5 min 4 s"_s);
    takePictures(window, u"tagesdetail"_s, QPoint(4, 70));
    window.resize(400, 300);
    settle();
    takePictures(window, u"tagesdetail-klein"_s, QPoint(4, 70));
}

TEST_F(DayDetailWindowTest, iconIsShownAndAMissingOrBrokenOneHasTheSubstitute) {
    openPanel();
    record(5, "Bunt", 300, icon(QColor(222, 100, 30)));
    record(5, "Kaputt", 200, "no picture at all");
    record(5, "Ohne", 100);
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    const QPoint middleOfIcon(20 + 8, 14);
    EXPECT_TRUE(looksLike(pixel(window, 0, middleOfIcon), QColor(222, 100, 30)));
    const QColor substitute = Palette::of(ColorScheme::light).secondary;
    EXPECT_TRUE(looksLike(pixel(window, 1, middleOfIcon), substitute));
    EXPECT_TRUE(looksLike(pixel(window, 2, middleOfIcon), substitute));
}

TEST_F(DayDetailWindowTest, everySecondRowHasAGround) {
    openPanel();
    for (int app = 0; app < 4; ++app)
        record(5, "Programm " + std::to_string(app), 60);
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    EXPECT_EQ(list(window).visualRect(list(window).model()->index(1, 0)).height(), 28);
    const QColor ground = Palette::of(ColorScheme::light).ground;
    const QPoint free(250, 14);
    EXPECT_EQ(pixel(window, 0, free), ground);
    EXPECT_NE(pixel(window, 1, free), ground);
    EXPECT_EQ(pixel(window, 2, free), ground);
    EXPECT_NE(pixel(window, 3, free), ground);
}

TEST_F(DayDetailWindowTest, choosingADayAgainOpensOneMoreWindow) {
    openPanel();
    record(5, "Editor", 60);
    choose(u"15. November 2026"_s);
    choose(u"15. November 2026"_s);
    EXPECT_EQ(dayWindows().size(), 2U);
    EXPECT_EQ(registry.windowControllers().size(), 1U);
}

TEST_F(DayDetailWindowTest, closingOneOfTwoLeavesTheOtherAndItsEntry) {
    openPanel();
    record(5, "Editor", 60);
    record(4, "Editor", 60);
    const QPointer<DayDetailWindow> first = &choose(u"15. November 2026"_s);
    choose(u"16. November 2026"_s);
    ASSERT_EQ(registry.windowControllers().size(), 2U);
    first->close();
    EXPECT_EQ(registry.windowControllers().size(), 1U);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(dayWindows().size(), 1U);
}

TEST_F(DayDetailWindowTest, oneThatIsHiddenLosesItsEntryToTheNext) {
    openPanel();
    record(5, "Editor", 60);
    record(4, "Editor", 60);
    DayDetailWindow& first = choose(u"15. November 2026"_s);
    first.hide();
    choose(u"16. November 2026"_s);
    EXPECT_EQ(registry.windowControllers().size(), 1U);
    EXPECT_FALSE(registry.windowControllers().contains("detailWindowController_15.11.2026"));
}

TEST_F(DayDetailWindowTest, outlivesThePanelAndKeepsWhatItWasGiven) {
    openPanel();
    record(5, "Editor", 60);
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    manager().clearAllData();
    screen->hide();
    settle();
    EXPECT_TRUE(window.isVisible());
    screen.reset();
    settle();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(spoken(window, 0), u"Editor, 0 h 1 min 0 s"_s);
}

TEST_F(DayDetailWindowTest, followsTheColourSchemeWhileOpen) {
    openPanel();
    record(5, "Editor", 60);
    DayDetailWindow& window = choose(u"15. November 2026"_s);
    applyColorScheme(ColorScheme::dark);
    settle();
    EXPECT_EQ(picture(window).pixelColor(4, 70), Palette::of(ColorScheme::dark).ground);
    applyColorScheme(ColorScheme::light);
}

TEST_F(DayDetailWindowTest, tenThousandApplicationsCostWhatIsSeen) {
    openPanel();
    DailyAppUsage crowded{.id = Uuid::generate(), .date = friday.addingSeconds(-15 * 3600), .sessions = {}};
    for (int app = 0; app < 10000; ++app)
        crowded.sessions.push_back({.id = Uuid::generate(),
                                    .appName = "Programm " + std::to_string(app),
                                    .bundleIdentifier = "org",
                                    .startTime = friday,
                                    .endTime = friday.addingSeconds(app),
                                    .iconData = std::nullopt});
    manager().dailyUsageData = {crowded};
    settle();
    DayDetailWindow& window = choose(u"20. November 2026"_s);
    EXPECT_EQ(list(window).model()->rowCount(), 10000);
    EXPECT_LT(window.findChildren<QWidget*>().size(), 40);
}

} // namespace
} // namespace brisklog::test
